// The header: settings that it passes on, events that it routes.

#include "frame/CDepthModuleHeaderWidget.h"

#include "frame/FrameFixture.h"

#include <QImage>

#include <memory>

namespace frame_tests {
namespace {

class Header : public ::testing::Test
{
protected:
    Header() : header(new Kel::CDepthModuleHeaderWidget(&cell))
    {
        cell.resize(400, 300);
        cell.show();
        header->m_sigEvent.connect([this](int id, int first, int second, QString text, void* pointer) {
            heard.push_back({id, first, second, text, pointer});
            return listenerAnswers;
        });
    }

    Kel::CDepthModuleGroupBaseWidget* group() const
    {
        return header->findChild<Kel::CDepthModuleGroupBaseWidget*>();
    }

    Ids shown() const
    {
        Ids ids;
        for (Zeb::CPushButton* one : group()->findChildren<Zeb::CPushButton*>()) {
            if (!one->isHidden())
                ids.push_back(one->id());
        }
        return ids;
    }

    Listener cell;
    Kel::CDepthModuleHeaderWidget* header;
    Events heard;
    bool listenerAnswers = false;
};

TEST_F(Header, HoldsAFrameThatFillsIt)
{
    EXPECT_EQ(header->objectName().toStdString(), "CDepthModuleHeaderWidget");
    ASSERT_NE(group(), nullptr);
    EXPECT_EQ(group()->parentWidget(), header);
    EXPECT_EQ(header->contentWidget(), group());
    header->resize(320, 240);
    EXPECT_EQ(group()->geometry(), QRect(0, 0, 320, 240));
}

TEST_F(Header, PutsThePanelsTitleIntoTheStrip)
{
    header->resize(400, 300);
    const QImage before = group()->grab().toImage();
    EXPECT_TRUE(header->handleEvent(1395, 0, 0, QStringLiteral("title"), nullptr));
    EXPECT_NE(group()->grab().toImage(), before);
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(cell.events.empty());
}

TEST_F(Header, ATitleWithoutAFrameIsTakenAndNothingElse)
{
    delete group();
    EXPECT_TRUE(header->handleEvent(1395, 0, 0, QStringLiteral("title"), nullptr));
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(cell.events.empty());
}

TEST_F(Header, SettingsWithoutAFrameDoNothing)
{
    delete group();
    QWidget body;
    header->setWidget(&body);
    header->setHeader(QStringLiteral("title"));
    header->setDrawSplit(true);
    header->setActionHandler([](int) {});
    header->setQueueModeLevel(1);
    header->setQueueModeStyle(1);
    header->showExtendShrinkImage(true);
    header->showFilterImage(true);
    header->showQueueActionImage(true);
    header->resize(200, 200);
    EXPECT_TRUE(heard.empty());
}

TEST_F(Header, SendsButtonsAndSelectedLevelsToItsListeners)
{
    int data = 0;
    for (const int id : {5, 3223}) {
        heard.clear();
        EXPECT_TRUE(header->handleEvent(id, 7, 1, QStringLiteral("t"), &data)) << "whatever a listener says";
        EXPECT_EQ(heard, (Events{{id, 7, 1, QStringLiteral("t"), &data}}));
    }
    listenerAnswers = true;
    EXPECT_TRUE(header->handleEvent(5, 7, 1, QString(), nullptr));
}

TEST(HeaderAlone, TakesAButtonThoughNobodyListens)
{
    Kel::CDepthModuleHeaderWidget header;
    EXPECT_TRUE(header.handleEvent(5, 0, 1, QString(), nullptr));
    EXPECT_TRUE(header.handleEvent(3223, 0, 0, QString(), nullptr));
}

TEST_F(Header, LetsFirstNumberNinePass)
{
    EXPECT_FALSE(header->handleEvent(5, 9, 0, QString(), nullptr));
    EXPECT_FALSE(header->handleEvent(3223, 9, 0, QString(), nullptr));
    EXPECT_TRUE(heard.empty());
}

TEST_F(Header, LeavesOtherEventsToTheBase)
{
    for (const int id : {0, 4, 15, 1394, 1396, 3224}) {
        EXPECT_FALSE(header->handleEvent(id, 1, 1, QString(), nullptr)) << id;
        EXPECT_TRUE(heard.empty()) << id;
    }
}

TEST_F(Header, AModeGoesByTheSignalToThePanel)
{
    header->setQueueModeLevel(0);
    header->setQueueModeStyle(0);
    header->setQueueModeStyle(3);
    EXPECT_EQ(heard, (Events{{5, 0, 1, QString(), nullptr},
                             {5, 2, 1, QString(), nullptr},
                             {5, 5, 1, QString(), nullptr}}));
    EXPECT_TRUE(cell.events.empty());
}

TEST_F(Header, AnAskedModeGoesPastTheHeaderToTheHost)
{
    header->showQueueActionImage(true);
    for (Zeb::CPushButton* button : group()->findChildren<Zeb::CPushButton*>()) {
        if (button->id() == 1)
            button->click();
    }
    EXPECT_EQ(cell.events, (Events{{1396, 0, 0, QString(), nullptr}}));
    EXPECT_TRUE(heard.empty()) << "nothing is in force before the host answers";
}

TEST_F(Header, TheFilterButtonGoesPastFrameAndHeaderToTheHost)
{
    header->showFilterImage(true);
    for (Zeb::CPushButton* button : group()->findChildren<Zeb::CPushButton*>()) {
        if (button->id() == 9)
            button->click();
    }
    EXPECT_EQ(cell.events, (Events{{5, 9, 0, QString(), nullptr}}));
    EXPECT_TRUE(heard.empty());
}

TEST_F(Header, PassesItsSettingsOn)
{
    QWidget body(header);
    header->setWidget(&body);
    header->resize(300, 200);
    EXPECT_EQ(body.geometry(), QRect(0, 20, 300, 180));

    header->showQueueActionImage(true);
    EXPECT_EQ(shown(), (Ids{1, 2}));
    header->setQueueModeStyle(1);
    EXPECT_EQ(shown(), (Ids{1, 3}));
    header->showExtendShrinkImage(true);
    EXPECT_EQ(shown(), (Ids{1, 3, 10}));
    header->showFilterImage(true);
    EXPECT_EQ(shown(), (Ids{1, 3, 9, 10}));

    int folded = 0;
    header->setActionHandler([&](int action) { folded = action; });
    group()->handleEvent(5, 10, 0, QString(), nullptr);
    EXPECT_EQ(folded, 10);

    QImage before = group()->grab().toImage();
    header->setDrawSplit(true);
    EXPECT_NE(group()->grab().toImage(), before);
    before = group()->grab().toImage();
    header->setHeader(QStringLiteral("title"));
    EXPECT_NE(group()->grab().toImage(), before);
}

TEST_F(Header, EndsWithListenersConnected)
{
    const auto held = std::make_shared<int>(1);
    header->m_sigEvent.connect([held](int, int, int, QString, void*) { return true; });
    delete header;
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace frame_tests
