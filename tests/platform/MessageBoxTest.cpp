#include "MessageBox.h"

#include <gtest/gtest.h>

TEST(MessageBox, WithoutPresenterWritesToStandardErrorAndGivesTheDefaultAnswer) {
    const std::pair<UINT, int> cases[] = {
        {MB_OK | MB_ICONERROR, IDOK}, {MB_OKCANCEL, IDOK}, {MB_YESNO | MB_ICONQUESTION, IDYES}};
    for (const auto& [type, answer] : cases) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(MessageBoxW(nullptr, "Record not found", "Kovalin", type), answer) << type;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Kovalin: Record not found\n");
    }
}
