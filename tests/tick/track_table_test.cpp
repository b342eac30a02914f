// The deals of an order in the track dialog.

#include "TrackFixture.h"

#include <QWheelEvent>

using namespace testing_support;
using namespace Kel;

TEST_F(Track, TheTableHasARowADealInTheColourOfTheOrder)
{
    show(2, {record(1, 300, 9.99, 7), record(3, 900), record(2, 50, 10.02, 8)});
    const auto table = picture(dialog.m_deals->table());
    EXPECT_EQ(table->texts(),
              (QStringList{QStringLiteral("10:00:07"), QStringLiteral("9.99"), QStringLiteral("3手"),
                           QStringLiteral("2997.00元"), QStringLiteral("10:00:08"), QStringLiteral("10.02"),
                           QStringLiteral("1手"), QStringLiteral("501.00元")}));
    EXPECT_EQ(table->text(QStringLiteral("3手")).color(), colorOf(kFall))
        << "a buyer was active, the order sells";
    EXPECT_EQ(table->text(QStringLiteral("9.99")).color(), colorOf(kFall));
    EXPECT_EQ(table->text(QStringLiteral("10.02")).color(), colorOf(kRise));
}

TEST_F(Track, ATableThatWasScrolledOpensTheNextOrderAtItsTop)
{
    Records many;
    for (int number = 0; number < 90; ++number)
        many.push_back(record(1, 100, 10, number));
    show(1, many);
    QTest::keyClick(dialog.m_deals->table(), Qt::Key_End);
    Records next = {record(1, 700)};
    for (int number = 1; number < 45; ++number)
        next.push_back(record(1, 100, 10, number));
    show(1, next);
    EXPECT_EQ(picture(dialog.m_deals->table())->count(QStringLiteral("7手")), 1);
}

TEST_F(Track, TheTableScrollsByBarWheelAndKeys)
{
    Records many;
    for (int number = 0; number < 50; ++number)
        many.push_back(record(1, 100 * (number + 1), 10, 5));
    show(1, many);
    CDealTable* const table = dialog.m_deals->table();
    auto* const bar = table->findChild<CIndexScrollBar*>();
    const int rows = table->height() / 20;
    EXPECT_FALSE(bar->isHidden());
    EXPECT_EQ(bar->maximum(), 50 - rows);
    EXPECT_EQ(bar->value(), 0) << "it opens at its top";
    bar->setValue(3);
    EXPECT_EQ(picture(table)->count(QStringLiteral("3手")), 0);
    EXPECT_EQ(picture(table)->count(QStringLiteral("4手")), 1);
    bar->setValue(0);
    const auto wheel = [&](int delta) {
        const QPointF middle = table->rect().center();
        QWheelEvent event(middle, table->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(table, &event);
    };
    wheel(120);
    EXPECT_EQ(bar->value(), 0);
    wheel(-120);
    EXPECT_GT(bar->value(), 0);
    QTest::keyClick(table, Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    wheel(-120);
    EXPECT_EQ(bar->value(), bar->maximum());
    QTest::keyClick(table, Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    show(1, {record(1, 300)});
    EXPECT_TRUE(bar->isHidden());
}

TEST_F(Track, TheKeysBringARowIntoViewThoughTheSliderOfTheOrderBeforeStandsThere)
{
    Records many;
    for (int number = 0; number < 50; ++number)
        many.push_back(record(1, 100 * (number + 1), 10, 5));
    show(1, many);
    CDealTable* const table = dialog.m_deals->table();
    QTest::keyClick(table, Qt::Key_End);
    show(1, many); // opens at its top, and the slider stays at the end
    EXPECT_EQ(picture(table)->count(QStringLiteral("50手")), 0);
    QTest::keyClick(table, Qt::Key_End);
    EXPECT_EQ(picture(table)->count(QStringLiteral("50手")), 1);
    EXPECT_EQ(picture(table)->all(PaintCommand::eRect).size(), 1u) << "the selected row is in view";
}

TEST_F(Track, ARowOfTheTableIsSelectedByClick)
{
    show(1, {record(1, 300), record(1, 500)});
    CDealTable* const table = dialog.m_deals->table();
    const int top = (table->height() - table->height() / 20 * 20) / 2;
    const QPoint second(50, top + 25);
    QTest::mouseClick(table, Qt::LeftButton, Qt::NoModifier, second);
    ASSERT_EQ(picture(table)->all(PaintCommand::eRect).size(), 1u);
    const PaintCommand outline = picture(table)->all(PaintCommand::eRect)[0];
    EXPECT_EQ(outline.rect, QRectF(5, top + 20, table->width() - 10, 20));
    EXPECT_EQ(outline.color(), colorOf("ic_clr_entrust_amount"));
    QTest::mouseClick(table, Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_TRUE(picture(table)->all(PaintCommand::eRect).empty()) << "a second click deselects";
    for (int time = 0; time < 2; ++time) {
        QMouseEvent twice(QEvent::MouseButtonDblClick, second, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(table, &twice);
        EXPECT_EQ(picture(table)->all(PaintCommand::eRect).size(), 1u) << "a double click only selects";
    }
    QTest::mouseClick(table, Qt::LeftButton, Qt::NoModifier, QPoint(50, top + 70));
    EXPECT_TRUE(picture(table)->all(PaintCommand::eRect).empty());
}
