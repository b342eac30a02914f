// The pictures of the order list and of the cancel list, and what their rows answer to the mouse.

#include "TickPanels.h"

#include "platform/toolkit/CPushButton.h"
#include "tick/CDepthEntrustTrackDialog.h"
#include "tick/CEntrustTitleWidget.h"

#include <boost/make_shared.hpp>

#include <cmath>

using namespace testing_support;
using namespace Kel;

namespace {

constexpr int kTime = 2;
constexpr int kSymbolAfterAmount = 90;

const char* const kRise = "ic_clr_entrust_text_rise";
const char* const kFall = "ic_clr_entrust_text_fall";
const char* const kDefault = "ic_clr_entrust_default_text";

class OpenTitle : public CEntrustTitleWidget
{
public:
    using CEntrustTitleWidget::CEntrustTitleWidget;
    using CEntrustTitleWidget::drawTitle;
    using CEntrustTitleWidget::m_button;
};

class OpenOrders : public OpenList<CDepthOrderWidget>
{
public:
    using CDepthOrderWidget::m_trackColor;
    using CDepthOrderWidget::m_trackOrderNo;
    using OpenList::OpenList;
};

class OpenCancels : public OpenList<CDepthCancelWidget>
{
public:
    using OpenList::OpenList;
};

class EntrustLists : public testing::Test
{
protected:
    EntrustLists()
    {
        addInstruments();
        model->setStock(kStock);
        dialog.setStock(kStock);
        for (QWidget* const list : {static_cast<QWidget*>(&orderList), static_cast<QWidget*>(&cancelList)}) {
            list->resize(320, 94);
            list->show();
        }
        orderList.addReceiver(&sink);
    }

    void orders(Batch batch)
    {
        model->entrustCallback(0, 1, wrap(std::move(batch)));
        orderList.refresh();
        cancelList.refresh();
    }
    void deals(Batch batch)
    {
        model->transactionCallback(0, 1, wrap(std::move(batch)));
        cancelList.refresh();
    }

    template <class List>
    static int priceLeft(const List& list)
    {
        return kTime + (list.m_layout.priceArea - 60) / 2 + 62;
    }

    boost::shared_ptr<CModelDepthEntrust> model = boost::make_shared<CModelDepthEntrust>();
    CDepthEntrustTrackDialog dialog{nullptr};
    OpenTitle orderTitle{QStringLiteral("挂单")};
    OpenTitle cancelTitle{QStringLiteral("撤单")};
    OpenOrders orderList{model, &orderTitle, &dialog, nullptr};
    OpenCancels cancelList{model, &cancelTitle, &dialog, nullptr};
    EventSink sink;
};

} // namespace

TEST_F(EntrustLists, HaveTheirNames)
{
    EXPECT_EQ(orderList.objectName(), QStringLiteral("depth_order_widget"));
    EXPECT_EQ(cancelList.objectName(), QStringLiteral("depth_cancel_widget"));
    EXPECT_EQ(orderTitle.objectName(), QStringLiteral("entrust_title_widget"));
}

TEST_F(EntrustLists, DivideTheWidthByGroupsOf284)
{
    orderList.resize(10 + 284 * 3 + 10 - 1, 94);
    EXPECT_EQ(orderList.m_layout.groupCount, 2);
    orderList.resize(10 + 284 * 3 + 10, 94);
    EXPECT_EQ(orderList.m_layout.groupCount, 3);
    EXPECT_EQ(orderList.m_layout.groupWidth, 284);
    EXPECT_EQ(orderList.m_layout.priceArea, 60);
}

TEST_F(EntrustLists, WithoutRowsShowGroundAndSeparators)
{
    orderList.resize(600, 94);
    const auto picture = orderList.picture();
    EXPECT_TRUE(picture->texts().isEmpty());
    ASSERT_EQ(picture->lineCommands().size(), 1u);
    const int x = orderList.m_layout.groupWidth + 2 + 2 - 1;
    EXPECT_EQ(picture->lineCommands()[0].line, QLineF(x, 2, x, 90));
    EXPECT_EQ(picture->lineCommands()[0].color(), colorOf("ic_clr_realtime_axis_line"));
    EXPECT_EQ(picture->fills()[0].color(), colorOf("ic_clr_graph_kline_bg"));
}

TEST_F(EntrustLists, AnOrderRowHasFiveColumns)
{
    orders({order(5, 1, 10.01, 5500, at(10, 0, 1))});
    const auto picture = orderList.picture();
    EXPECT_EQ(picture->texts(),
              (QStringList{QStringLiteral("10:00:01"), QStringLiteral("10.01"), QStringLiteral("55"),
                           QStringLiteral("5.51万"), QStringLiteral("B")}));
    int x = priceLeft(orderList);
    EXPECT_TRUE(picture->text(QStringLiteral("10:00:01")).standsIn(orderList.cell(0, kTime, 62), kRight));
    EXPECT_TRUE(picture->text(QStringLiteral("10.01")).standsIn(orderList.cell(0, x, 60), kRight));
    EXPECT_TRUE(picture->text(QStringLiteral("55")).standsIn(orderList.cell(0, x + 60, 42), kRight));
    EXPECT_TRUE(picture->text(QStringLiteral("5.51万")).standsIn(orderList.cell(0, x + 102, 90), kRight));
    EXPECT_TRUE(picture->text(QStringLiteral("B")).standsIn(orderList.cell(0, x + 192, 30), kRight));
}

TEST_F(EntrustLists, AnOrderRowHasTheColoursOfPriceAndSide)
{
    orders({order(1, 1, 10.01, 5500, at(10, 0, 1)), order(2, 2, 9.99, 6600, at(10, 0, 2)),
            order(3, 0, 10, 7700, at(10, 0, 3))});
    const auto picture = orderList.picture();
    EXPECT_EQ(picture->text(QStringLiteral("10.01")).color(), colorOf(kRise));
    EXPECT_EQ(picture->text(QStringLiteral("9.99")).color(), colorOf(kFall));
    EXPECT_EQ(picture->text(QStringLiteral("10.00")).color(), colorOf(kDefault));
    EXPECT_EQ(picture->text(QStringLiteral("55")).color(), colorOf(kRise));
    EXPECT_EQ(picture->text(QStringLiteral("66")).color(), colorOf(kFall));
    EXPECT_EQ(picture->text(QStringLiteral("77")).color(), colorOf(kDefault));
    EXPECT_EQ(picture->text(QStringLiteral("5.51万")).color(), colorOf(kRise));
    EXPECT_EQ(picture->text(QStringLiteral("S")).color(), colorOf(kFall));
    EXPECT_EQ(picture->text(QStringLiteral("-")).color(), colorOf(kDefault));
}

TEST_F(EntrustLists, NumbersWithinASecondAndMinuteLinesAreThoseOfTheFamily)
{
    orders({order(1, 1, 10, 5500, at(10, 0, 59)), order(2, 1, 10, 5500, at(10, 0, 59)),
            order(3, 1, 10, 5500, at(10, 1, 0))});
    const auto picture = orderList.picture();
    EXPECT_EQ(picture->text(QStringLiteral("10:00:59")).color(),
              colorOf("ic_clr_modelgroup_transaction_index"));
    EXPECT_TRUE(picture->text(QStringLiteral("2")).standsIn(orderList.cell(1, kTime, 62), kRight));
    EXPECT_EQ(picture->text(QStringLiteral("2")).color(), colorOf("ic_clr_entrust_amount"));
    EXPECT_EQ(picture->count(QStringLiteral("10:01:00")), 1);
    const PaintCommand line = picture->lineCommands().at(0);
    EXPECT_EQ(line.pen.style(), Qt::DashLine);
    EXPECT_EQ(line.line.y1(), orderList.m_layout.lineTop(2));
}

TEST_F(EntrustLists, AnAmountBelowTenThousandEndsInYuan)
{
    orders({order(1, 1, 99.99, 100, at(10, 0, 1)), order(2, 1, 100, 100, at(10, 0, 2)),
            order(3, 1, 99.9999999, 100, at(10, 0, 3)), order(4, 1, 100, 100000000, at(10, 0, 4))});
    const QStringList texts = orderList.picture()->texts();
    EXPECT_TRUE(texts.contains(QStringLiteral("9999.00元")));
    EXPECT_EQ(texts.count(QStringLiteral("1.00万")), 2) << "10,000 and what lies within the tolerance of it";
    EXPECT_TRUE(texts.contains(QStringLiteral("100.00亿")));
}

TEST_F(EntrustLists, TheOrderSymbolMakesRoomForTheBarAndTheCancelSymbolDoesNot)
{
    Batch batch;
    Batch cancels;
    for (int number = 1; number <= 20; ++number) {
        batch.push_back(order(number, 1, 10, 5500, at(10, 0, 0) + number * 1000));
        cancels.push_back(cancel(number, number, 0, 5500, at(10, 5, 0) + number * 1000));
    }
    orders(batch);
    deals(cancels);
    const int x = priceLeft(orderList) + 102 + kSymbolAfterAmount;
    EXPECT_TRUE(orderList.picture()->text(QStringLiteral("B")).standsIn(orderList.cell(0, x, 24), kRight));
    EXPECT_TRUE(cancelList.picture()->text(QStringLiteral("B")).standsIn(cancelList.cell(0, x, 30), kRight));
}

TEST_F(EntrustLists, MarkedHandsHaveTheMarksColour)
{
    orders({order(1, 1, 10, 5500, at(10, 0, 1)), order(2, 1, 10, 5600, at(10, 0, 2))});
    deals({cancel(1, 1, 0, 5500, at(10, 0, 3)), cancel(2, 9, 0, 5500, at(10, 0, 4))});
    SDepthFilterParam param;
    param.mark = 55;
    param.color = 3;
    orderList.setFilterParam(param);
    cancelList.setFilterParam(param);
    const auto picture = orderList.picture();
    EXPECT_EQ(picture->text(QStringLiteral("55")).color(), colorOf("ic_clr_mark_yellow"));
    EXPECT_EQ(picture->text(QStringLiteral("56")).color(), colorOf(kRise));
    const auto cancels = cancelList.picture()->textCommands(QStringLiteral("55"));
    ASSERT_EQ(cancels.size(), 2u);
    EXPECT_EQ(cancels[0].color(), colorOf("ic_clr_mark_yellow"));
    EXPECT_EQ(cancels[1].color(), colorOf(kDefault)) << "without its order a cancel is not marked";
}

TEST_F(EntrustLists, ACancelShowsPriceSideAndAmountOfItsOrder)
{
    orders({order(5, 2, 9.99, 90000, at(10, 0, 1))});
    deals({cancel(1, 5, 5, 5500, at(10, 0, 3))});
    const auto picture = cancelList.picture();
    EXPECT_EQ(picture->texts(),
              (QStringList{QStringLiteral("10:00:03"), QStringLiteral("9.99"), QStringLiteral("55"),
                           QStringLiteral("5.49万"), QStringLiteral("S")}));
    for (const char* const text : {"9.99", "55", "5.49万", "S"})
        EXPECT_EQ(picture->text(QString::fromUtf8(text)).color(), colorOf(kFall)) << text;
}

TEST_F(EntrustLists, ACancelWithoutItsOrderHasACInTheAmountColumn)
{
    deals({cancel(1, 5, 0, 5500, at(10, 0, 3))});
    const auto picture = cancelList.picture();
    EXPECT_EQ(picture->texts(), (QStringList{QStringLiteral("10:00:03"), QStringLiteral("0.00"),
                                             QStringLiteral("55"), QStringLiteral("C")}));
    const int x = priceLeft(cancelList) + 60 + 42;
    EXPECT_TRUE(picture->text(QStringLiteral("C")).standsIn(cancelList.cell(0, x, 30), kRight));
    for (const char* const text : {"0.00", "55", "C"})
        EXPECT_EQ(picture->text(QString::fromUtf8(text)).color(), colorOf(kDefault)) << text;
}

TEST_F(EntrustLists, ATrackedOrderIsFoundAndDrawnInTheFirstMarkColour)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 1, 500)),
            order(7, 2, 10, 6600, at(10, 0, 1))});
    orderList.setTrackOrderParam((10 * 3600 + 1) * 1000, 10, 55, 1, 42);
    EXPECT_EQ(sink.events, (std::vector<SentEvent>{{3225, 5, 42, {}}, {3225, 6, 42, {}}}))
        << "every match raises its event";
    EXPECT_EQ(orderList.m_trackOrderNo, 6) << "the last one stays";
    EXPECT_EQ(orderList.m_trackColor, 0);
    const auto texts = orderList.picture()->textCommands(QStringLiteral("55"));
    EXPECT_EQ(texts[0].color(), colorOf(kRise));
    EXPECT_EQ(texts[1].color(), colorOf("ic_clr_mark_light_blue"));
}

TEST_F(EntrustLists, ATrackedOrderThatIsMarkedAsWellHasTheColourOfTheTracked)
{
    SDepthFilterParam param;
    param.mark = 55;
    param.color = 3;
    orderList.setFilterParam(param);
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 2))});
    orderList.setTrackOrderParam((10 * 3600 + 1) * 1000, 10, 55, 1, 42);
    const auto texts = orderList.picture()->textCommands(QStringLiteral("55"));
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].color(), colorOf("ic_clr_mark_light_blue"));
    EXPECT_EQ(texts[1].color(), colorOf("ic_clr_mark_yellow"));
}

TEST_F(EntrustLists, ARowThatVanishedEndsThePicture)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 2))});
    deals({cancel(1, 5, 0, 5500, at(10, 0, 3))});
    orderList.m_total = 4;
    cancelList.m_total = 4;
    EXPECT_EQ(orderList.picture()->count(QStringLiteral("55")), 2);
    EXPECT_EQ(cancelList.picture()->count(QStringLiteral("55")), 1);
}

TEST_F(EntrustLists, TheBarTakesNoRoomFromTheHands)
{
    Batch batch;
    for (int number = 1; number <= 20; ++number)
        batch.push_back(order(number, 1, 10, 5500, at(10, 0, 1)));
    orders(batch);
    ASSERT_FALSE(orderList.m_scrollBar->isHidden());
    EXPECT_TRUE(orderList.picture()->textCommands(QStringLiteral("55"))[0].standsIn(
        orderList.cell(0, priceLeft(orderList) + 60, 42), kRight));
}

TEST_F(EntrustLists, TrackingComparesExactlyAndLimitOrdersOnly)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1), 2), order(6, 1, 10, 5500, at(10, 0, 2))});
    const int time = (10 * 3600 + 2) * 1000;
    orderList.setTrackOrderParam(time, std::nextafter(10.0, 11.0), 55, 1, 1);
    orderList.setTrackOrderParam(time, 10, 56, 1, 1);
    orderList.setTrackOrderParam(time, 10, 55, 2, 1);
    orderList.setTrackOrderParam(time + 1, 10, 55, 1, 1);
    orderList.setTrackOrderParam(time - 1000, 10, 55, 1, 1);
    EXPECT_TRUE(sink.events.empty());
    EXPECT_EQ(orderList.m_trackOrderNo, 0);
}

namespace {

/// Calls something at the first event that it gets.
class FirstEvent : public Zeb::CEventHandler
{
public:
    explicit FirstEvent(std::function<void()> action) : m_action(std::move(action)) {}
    bool handleEvent(int, int first, int, QString, void*) override
    {
        numbers.push_back(first);
        if (numbers.size() == 1)
            m_action();
        return true;
    }

    std::vector<int> numbers;

private:
    std::function<void()> m_action;
};

} // namespace

TEST_F(EntrustLists, TrackingGivesTheOrdersThatMatchedThoughTheListChangesInBetween)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 1))});
    FirstEvent receiver([&] {
        orders({order(1, 2, 9, 100, at(9, 59, 0)), order(2, 2, 9, 100, at(9, 59, 0))});
    });
    orderList.removeReceiver(&sink);
    orderList.addReceiver(&receiver);
    orderList.setTrackOrderParam((10 * 3600 + 1) * 1000, 10, 55, 1, 42);
    EXPECT_EQ(receiver.numbers, (std::vector<int>{5, 6}));
    EXPECT_EQ(orderList.m_trackOrderNo, 6);
}

TEST_F(EntrustLists, TheHostMayEndTheListWhenATrackedOrderIsFound)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 1))});
    auto list = std::make_unique<OpenOrders>(model, &orderTitle, &dialog, nullptr);
    FirstEvent receiver([&] { list.reset(); });
    list->addReceiver(&receiver);
    list->setTrackOrderParam((10 * 3600 + 1) * 1000, 10, 55, 1, 42);
    EXPECT_FALSE(list);
    EXPECT_EQ(receiver.numbers, std::vector<int>{5});
}

TEST_F(EntrustLists, OtherButtonsThanTheLeftLeaveSelectionAndDialogAlone)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 2))});
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(&orderList, button, Qt::NoModifier, orderList.middleOf(0));
        QTest::mouseDClick(&orderList, button, Qt::NoModifier, orderList.middleOf(0));
        EXPECT_EQ(orderList.m_selectedIndex, -1);
    }
    EXPECT_FALSE(dialog.isVisible());
    QTest::mouseClick(&orderList, Qt::LeftButton, Qt::NoModifier, orderList.middleOf(1));
    for (const int place : {0, 1, 4})
        QTest::mouseClick(&orderList, Qt::RightButton, Qt::NoModifier, orderList.middleOf(place));
    EXPECT_EQ(orderList.m_selectedIndex, 1);
}

TEST_F(EntrustLists, AClickTogglesAndASecondDoubleClickKeepsTheSelection)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1)), order(6, 1, 10, 5500, at(10, 0, 2))});
    QTest::mouseClick(&orderList, Qt::LeftButton, Qt::NoModifier, orderList.middleOf(1));
    EXPECT_EQ(orderList.m_selectedIndex, 1);
    QTest::mouseClick(&orderList, Qt::LeftButton, Qt::NoModifier, orderList.middleOf(1));
    EXPECT_EQ(orderList.m_selectedIndex, -1);
    for (int time = 0; time < 2; ++time) {
        QMouseEvent twice(QEvent::MouseButtonDblClick, orderList.middleOf(1), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&orderList, &twice);
        EXPECT_EQ(orderList.m_selectedIndex, 1);
    }
    EXPECT_TRUE(sink.events.empty());
}

TEST_F(EntrustLists, ADoubleClickShowsTheTrackOfTheOrder)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    deals({cancel(1, 5, 0, 5500, at(10, 0, 3)), cancel(2, 9, 0, 5500, at(10, 0, 4))});
    QTest::mouseDClick(&orderList, Qt::LeftButton, Qt::NoModifier, orderList.middleOf(0));
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseDClick(&orderList, Qt::LeftButton, Qt::NoModifier, orderList.middleOf(3));
    EXPECT_FALSE(dialog.isVisible()) << "beside the rows";
    EXPECT_EQ(orderList.m_selectedIndex, -1);
    QTest::mouseDClick(&cancelList, Qt::LeftButton, Qt::NoModifier, cancelList.middleOf(0));
    EXPECT_TRUE(dialog.isVisible());
    QTest::mouseDClick(&cancelList, Qt::LeftButton, Qt::NoModifier, cancelList.middleOf(1));
    EXPECT_FALSE(dialog.isVisible()) << "its order is unknown";
    EXPECT_EQ(cancelList.m_selectedIndex, 1);
}

TEST_F(EntrustLists, TheReturnKeyShowsTheTrackOfTheSelectedRow)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    QTest::keyClick(&orderList, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    QTest::keyClick(&orderList, Qt::Key_Home);
    QTest::keyClick(&orderList, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(EntrustLists, RowsAsTextHaveTabsBetweenColumns)
{
    orders({order(5, 2, 9.99, 90000, at(10, 0, 1))});
    deals({cancel(1, 5, 5, 5500, at(10, 0, 3)), cancel(2, 9, 0, 5500, at(10, 0, 4))});
    EXPECT_EQ(orderList.rowText(0), QStringLiteral("10:00:01\t9.99\t900\t89.91万\tS\t5"));
    EXPECT_EQ(cancelList.rowText(0), QStringLiteral("10:00:03\t9.99\t55\t5.49万\tS\t5"));
    EXPECT_EQ(cancelList.rowText(1), QStringLiteral("10:00:04\t0.00\t55\t\tC\t9"));
    EXPECT_EQ(cancelList.rowText(2), QString());
}

TEST_F(EntrustLists, TheTitleShowsItsCountAndTheFilterButton)
{
    OpenTitle title(QStringLiteral("挂单"));
    title.resize(300, 22);
    title.setCount(1234);
    title.show();
    PaintRecorder recorder(300, 22);
    QPainter painter(&recorder);
    title.drawTitle(painter);
    painter.end();
    const PaintCommand text = recorder.text(QStringLiteral("挂单 - 1234笔"));
    EXPECT_TRUE(text.standsIn(QRect(5, 0, 300, 22), kLeft));
    EXPECT_EQ(text.color(), colorOf("kel_clr_depth_module_group_base_widget_header"));
    EXPECT_EQ(recorder.fills()[0].color(), colorOf("ic_clr_graph_kline_bg"));
    EXPECT_EQ(recorder.lineCommands()[0].line, QLineF(0, 21, 299, 21));
    EXPECT_EQ(recorder.lineCommands()[0].color(),
              colorOf("kel_clr_depth_module_group_base_widget_split_line"));
    EXPECT_EQ(text.font, *themeFont("fnt_default_normal"));
    EXPECT_EQ(title.m_button->imageKey(), QStringLiteral("kel_img_depth_filter_first"));
    EXPECT_EQ(title.m_button->id(), 0);
    EXPECT_EQ(title.m_button->pos(), QPoint(280, 1));
    EXPECT_EQ(title.maximumHeight(), 22);
    EXPECT_EQ(title.minimumHeight(), 22);
}

TEST_F(EntrustLists, FollowTheTheme)
{
    orders({order(5, 1, 10, 5500, at(10, 0, 1))});
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    resource.setTheme(QStringLiteral("light"));
    EXPECT_EQ(orderList.grab().toImage().pixelColor(3, 0), colorOf("ic_clr_graph_kline_bg"));
    resource.setTheme(QStringLiteral("dark"));
    EXPECT_EQ(orderList.grab().toImage().pixelColor(3, 0), colorOf("ic_clr_graph_kline_bg"));
}
