#include "TapAndHold.h"

#include "ShellTestSupport.h"

#include <QContextMenuEvent>
#include <QTest>

namespace {
class MenuTarget : public QWidget {
public:
    std::vector<QPoint> menus;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override { menus.push_back(event->pos()); }
};

// Runs the event loop for twice the hold time.
void outwait(int holdMs) {
    bool over = false;
    QTimer::singleShot(2 * holdMs, [&over] { over = true; });
    ASSERT_TRUE(waitUntil([&over] { return over; }));
}
} // namespace

TEST(TapAndHoldTest, APressHeldStillOpensTheContextMenuWhereTheStylusIsAndATapOrADragDoesNot) {
    constexpr int kHoldMs = 40;
    TapAndHold tapAndHold(kHoldMs);
    MenuTarget target;
    target.resize(100, 100);
    target.show();

    QTest::mousePress(&target, Qt::LeftButton, {}, QPoint(30, 40));
    ASSERT_TRUE(waitUntil([&target] { return !target.menus.empty(); }));
    QTest::mouseRelease(&target, Qt::LeftButton, {}, QPoint(30, 40));
    EXPECT_EQ(target.menus, std::vector<QPoint>{QPoint(30, 40)});

    QTest::mouseClick(&target, Qt::LeftButton, {}, QPoint(10, 10));
    outwait(kHoldMs);
    QTest::mousePress(&target, Qt::LeftButton, {}, QPoint(10, 10));
    QTest::mouseMove(&target, QPoint(30, 10));
    outwait(kHoldMs);
    QTest::mouseRelease(&target, Qt::LeftButton, {}, QPoint(30, 10));
    EXPECT_EQ(target.menus.size(), 1u);
}
