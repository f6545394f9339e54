#include "MessageBox.h"
#include "ScriptedMessageBoxes.h"

#include <gtest/gtest.h>

TEST(MessageBox, WithoutPresenterWritesToStandardErrorAndGivesTheDefaultAnswer) {
    const std::pair<UINT, int> cases[] = {{MB_OK | MB_ICONERROR, IDOK},
                                          {MB_OKCANCEL, IDOK},
                                          {MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL},
                                          {MB_YESNO | MB_ICONQUESTION, IDYES},
                                          {MB_YESNO | MB_DEFBUTTON2, IDNO},
                                          {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL}};
    for (const auto& [type, answer] : cases) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(MessageBoxW(nullptr, "Record not found", "Kovalin", type), answer) << type;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Kovalin: Record not found\n");
    }
}

TEST(MessageBox, ScriptedBoxesAnswerInOrderAndRecordWhatWasShown) {
    ScriptedMessageBoxes boxes;
    boxes.queueAnswer(IDNO);
    boxes.queueAnswer(IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, "Delete Ann?", "Users", MB_YESNO), IDNO);
    EXPECT_EQ(MessageBoxW(nullptr, "Restore?", "Utilities", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, "Done", "Utilities", MB_OK | MB_ICONINFORMATION), IDOK); // the queue ran dry
    EXPECT_EQ(boxes.texts(), QStringList({"Delete Ann?", "Restore?", "Done"}));
    EXPECT_EQ(boxes.captions(), QStringList({"Users", "Utilities", "Utilities"}));
    EXPECT_EQ(boxes.types(), QList<UINT>({MB_YESNO, MB_OKCANCEL, MB_OK | MB_ICONINFORMATION}));

    boxes.queueAnswer(IDNO);
    boxes.clear();
    EXPECT_EQ(MessageBoxW(nullptr, "Again", "Kovalin", MB_YESNO), IDOK);
    EXPECT_EQ(boxes.texts(), QStringList({"Again"}));
}

TEST(MessageBox, ScriptedBoxesPutBackThePresenterTheyReplaced) {
    ScriptedMessageBoxes outer;
    {
        ScriptedMessageBoxes inner;
        MessageBoxW(nullptr, "inside", "Kovalin", MB_OK);
        EXPECT_EQ(inner.texts(), QStringList({"inside"}));
    }
    MessageBoxW(nullptr, "outside", "Kovalin", MB_OK);
    EXPECT_EQ(outer.texts(), QStringList({"outside"}));
    EXPECT_EQ(setMessageBoxPresenter(nullptr), &outer);
    EXPECT_EQ(setMessageBoxPresenter(&outer), nullptr);
}
