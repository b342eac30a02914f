// Events climb from the sender to the first parent that takes them, and never leave their window.

#include "platform/toolkit/CBaseWidget.h"
#include "platform/toolkit/CIndexScrollBar.h"

#include <QApplication>
#include <QDialog>
#include <QWheelEvent>

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using Zeb::CBaseWidget;
using Zeb::CEventDeliverer;
using Zeb::CEventHandler;
using Zeb::CEventWidgetT;

using Log = std::vector<std::string>;

/// A widget that writes down what it is asked and answers as told.
class Taker : public CEventWidgetT<QWidget>
{
public:
    Taker(std::string name, Log* log, QWidget* parent)
        : CEventWidgetT<QWidget>(parent), m_name(name), m_log(log)
    {
    }

    bool handleEvent(int id, int first, int second, QString text, void* payload) override
    {
        m_log->push_back(m_name + " " + std::to_string(id) + " " + std::to_string(first) + " " +
                         std::to_string(second) + " " + text.toStdString() + (payload ? " data" : ""));
        if (action)
            action();
        return answer;
    }

    bool answer = false;
    std::function<void()> action;

private:
    std::string m_name;
    Log* m_log;
};

class Receiver : public CEventHandler
{
public:
    explicit Receiver(Log* log, std::string name) : m_log(log), m_name(std::move(name)) {}

    bool handleEvent(int, int, int, QString, void*) override
    {
        m_log->push_back(m_name);
        return answer;
    }

    bool answer = false;

private:
    Log* m_log;
    std::string m_name;
};

TEST(EventDelivery, AsksEachParentOnceFromTheNearestUp)
{
    Log log;
    Taker top("top", &log, nullptr);
    Taker middle("middle", &log, &top);
    CBaseWidget sender("sender", &middle);
    int payload = 0;
    EXPECT_FALSE(sender.deliverEvent(3224, 1, 2, "text", &payload));
    EXPECT_THAT(log, ::testing::ElementsAre("middle 3224 1 2 text data", "top 3224 1 2 text data"));
}

TEST(EventDelivery, StopsAtTheFirstThatTakesIt)
{
    Log log;
    Taker top("top", &log, nullptr);
    Taker middle("middle", &log, &top);
    middle.answer = true;
    CBaseWidget sender("sender", &middle);
    EXPECT_TRUE(sender.deliverEvent(5, 9, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::ElementsAre("middle 5 9 0 "));
}

TEST(EventDelivery, DoesNotAskTheSenderItself)
{
    Log log;
    Taker top("top", &log, nullptr);
    Taker own("own", &log, &top);
    CEventDeliverer deliverer(&own);
    own.answer = true;
    EXPECT_FALSE(deliverer.deliverEvent(5, 0, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::ElementsAre("top 5 0 0 "));
}

TEST(EventDelivery, PassesOverWidgetsThatTakeNoEvents)
{
    Log log;
    Taker top("top", &log, nullptr);
    QWidget plain(&top);
    CBaseWidget sender("sender", &plain);
    sender.deliverEvent(15, 0, 0, "", nullptr);
    EXPECT_EQ(log.size(), 1U);
}

TEST(EventDelivery, DoesNotLeaveTheWindowOfTheSender)
{
    Log log;
    Taker panel("panel", &log, nullptr);
    panel.answer = true;
    QDialog dialog(&panel);
    CBaseWidget sender("sender", &dialog);
    EXPECT_FALSE(sender.deliverEvent(5, 9, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST(EventDelivery, AWindowThatSendsAsksNoParent)
{
    Log log;
    Taker panel("panel", &log, nullptr);
    QDialog dialog(&panel);
    CEventDeliverer deliverer(&dialog);
    EXPECT_FALSE(deliverer.deliverEvent(5, 0, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST(EventDelivery, ReceiversAreAskedAfterTheParentsInTheirOrder)
{
    Log log;
    Taker top("top", &log, nullptr);
    CBaseWidget sender("sender", &top);
    Receiver first(&log, "first");
    Receiver second(&log, "second");
    sender.addReceiver(&first);
    sender.addReceiver(&second);
    sender.addReceiver(&first);
    sender.addReceiver(nullptr);
    sender.deliverEvent(1, 0, 0, "", nullptr);
    EXPECT_THAT(log, ::testing::ElementsAre("top 1 0 0 ", "first", "second"));

    log.clear();
    first.answer = true;
    EXPECT_TRUE(sender.deliverEvent(1, 0, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::ElementsAre("top 1 0 0 ", "first"));

    log.clear();
    sender.removeReceiver(&first);
    sender.deliverEvent(1, 0, 0, "", nullptr);
    EXPECT_THAT(log, ::testing::ElementsAre("top 1 0 0 ", "second"));

    log.clear();
    top.answer = true;
    sender.deliverEvent(1, 0, 0, "", nullptr);
    EXPECT_THAT(log, ::testing::ElementsAre("top 1 0 0 "));
}

TEST(EventDelivery, AHandlerMayDeleteTheSenderAndNobodyElseIsAsked)
{
    Log log;
    Taker top("top", &log, nullptr);
    Taker middle("middle", &log, &top);
    auto* sender = new CBaseWidget("sender", &middle);
    Receiver receiver(&log, "receiver");
    sender->addReceiver(&receiver);
    middle.action = [&] { delete sender; };
    EXPECT_FALSE(sender->deliverEvent(5, 0, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::ElementsAre("middle 5 0 0 "));
}

TEST(EventDelivery, AHandlerMayTakeAReceiverAway)
{
    Log log;
    Taker top("top", &log, nullptr);
    CBaseWidget sender("sender", &top);
    auto receiver = std::make_unique<Receiver>(&log, "receiver");
    sender.addReceiver(receiver.get());
    top.action = [&] {
        sender.removeReceiver(receiver.get());
        receiver.reset();
    };
    EXPECT_FALSE(sender.deliverEvent(5, 0, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::ElementsAre("top 5 0 0 "));
}

TEST(BaseWidget, TakesNoEventAndForwardsNone)
{
    Log log;
    Taker top("top", &log, nullptr);
    CBaseWidget widget("widget", &top);
    EXPECT_FALSE(widget.handleEvent(5, 1, 0, "", nullptr));
    EXPECT_THAT(log, ::testing::IsEmpty());
}

TEST(BaseWidget, HasItsObjectNameAndTracksTheMouse)
{
    const CBaseWidget widget("CDepthOrderQueueWidget");
    EXPECT_EQ(widget.objectName(), "CDepthOrderQueueWidget");
    EXPECT_TRUE(widget.hasMouseTracking());
}

TEST(BaseWidget, AFillingContentFollowsItsSizeLessTheMargins)
{
    CBaseWidget widget("widget");
    widget.resize(200, 100);
    auto* content = new QWidget;
    widget.setContentWidget(content, 3, 4, true);
    EXPECT_EQ(content->parentWidget(), &widget);
    EXPECT_EQ(content->geometry(), QRect(3, 4, 194, 92));
    widget.show();
    widget.resize(300, 120);
    EXPECT_EQ(content->geometry(), QRect(3, 4, 294, 112));
}

TEST(BaseWidget, AContentThatDoesNotFillKeepsItsSize)
{
    CBaseWidget widget("widget");
    auto* content = new QWidget;
    content->resize(20, 10);
    widget.setContentWidget(content, 3, 4, false);
    widget.show();
    widget.resize(300, 120);
    EXPECT_EQ(content->geometry(), QRect(3, 4, 20, 10));
}

TEST(BaseWidget, ForgetsAContentThatIsDeletedOrTakenAway)
{
    CBaseWidget widget("widget");
    auto* content = new QWidget;
    widget.setContentWidget(content, 0, 0, true);
    EXPECT_EQ(widget.contentWidget(), content);
    delete content;
    EXPECT_EQ(widget.contentWidget(), nullptr);
    widget.show();
    widget.resize(50, 50);

    auto* other = new QWidget(&widget);
    widget.setContentWidget(other, 0, 0, true);
    widget.setContentWidget(nullptr, 0, 0, true);
    widget.resize(70, 70);
    EXPECT_EQ(other->size(), QSize(50, 50));
}

class IndexScrollBar : public ::testing::Test
{
protected:
    IndexScrollBar() : m_owner("owner", &m_log, nullptr), m_bar(7, Qt::Vertical, &m_owner)
    {
        m_owner.resize(100, 100);
        m_bar.setGeometry(90, 0, 6, 100);
        m_bar.setRange(0, 10);
        m_owner.show();
    }

    Log m_log;
    Taker m_owner;
    Kel::CIndexScrollBar m_bar;
};

TEST_F(IndexScrollBar, TellsItsOwnerOfAChangeAtOnce)
{
    m_bar.setValue(4);
    EXPECT_THAT(m_log, ::testing::ElementsAre("owner 15 7 0 "));
    EXPECT_EQ(m_bar.sliderPosition(), 4);
}

TEST_F(IndexScrollBar, TellsNothingWithoutAChange)
{
    m_bar.setValue(0);
    m_bar.setRange(0, 20);
    m_bar.setPageStep(3);
    m_bar.setValue(4);
    m_log.clear();
    m_bar.setValue(4);
    m_bar.setSliderPosition(4);
    m_bar.setMaximum(4);
    EXPECT_THAT(m_log, ::testing::IsEmpty());
}

TEST_F(IndexScrollBar, TellsOfAClampByItsRange)
{
    m_bar.setValue(8);
    m_log.clear();
    m_bar.setMaximum(5);
    EXPECT_THAT(m_log, ::testing::ElementsAre("owner 15 7 0 "));
    EXPECT_EQ(m_bar.value(), 5);
}

TEST_F(IndexScrollBar, TellsOfAWheelStepAndOfNoneAtTheEnd)
{
    const auto turn = [&](int delta) {
        QWheelEvent wheel(QPointF(3, 50), QPointF(3, 50), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&m_bar, &wheel);
    };
    turn(-120);
    EXPECT_EQ(m_log.size(), 1U);
    EXPECT_GT(m_bar.value(), 0);
    m_bar.setValue(0);
    m_log.clear();
    turn(120);
    EXPECT_THAT(m_log, ::testing::IsEmpty());
}

TEST_F(IndexScrollBar, TellsOfEveryStepOfAHandThatDrags)
{
    m_bar.setSliderDown(true);
    m_bar.setSliderPosition(3);
    m_bar.setSliderPosition(6);
    m_bar.setSliderDown(false);
    EXPECT_EQ(m_log.size(), 2U);
    EXPECT_EQ(m_bar.value(), 6);
}

TEST_F(IndexScrollBar, TellsWhileHidden)
{
    m_bar.hide();
    m_bar.setValue(2);
    EXPECT_EQ(m_log.size(), 1U);
}

TEST_F(IndexScrollBar, AttachWidgetIsWithoutEffect)
{
    const auto before = m_owner.children();
    Kel::CIndexScrollBar::attachWidget(&m_owner, &m_owner, true, true);
    EXPECT_EQ(m_owner.children(), before);
}

} // namespace
