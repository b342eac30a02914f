// Which keys stand for which command: editing, conflicts, what a file says of them.

#include "host/window/keys/KeyMap.h"
#include "host/window/keys/commands.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include <set>
#include <string>

namespace window_tests {
namespace {

using host::KeyMap;
using EResult = host::KeyMap::EResult;

QKeySequence key(const char* text)
{
    return QKeySequence(QString::fromLatin1(text), QKeySequence::PortableText);
}

QString name(const char* id)
{
    return QString::fromLatin1(id);
}

class Keys : public ::testing::Test
{
protected:
    Keys()
    {
        map.add(name("open"), {key("Ctrl+O")});
        map.add(name("play"), {key("Space")});
        map.add(name("phase"), {});
    }

    KeyMap map;
};

TEST_F(Keys, BeginWithTheUsualOnes)
{
    EXPECT_EQ(map.keys(name("open")), QList<QKeySequence>{key("Ctrl+O")});
    EXPECT_TRUE(map.keys(name("phase")).isEmpty());
    EXPECT_EQ(map.commandOf(key("Space")), name("play"));
    EXPECT_EQ(map.commandOf(key("Ctrl+J")), QString());
    EXPECT_TRUE(map.differences().isEmpty());
}

TEST_F(Keys, OfACommandAreExchangedAndTold)
{
    QSignalSpy changed(&map, &KeyMap::changed);
    EXPECT_EQ(map.setKeys(name("open"), {key("Ctrl+J"), key("F9")}), EResult::eDone);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toString(), name("open"));
    EXPECT_EQ(map.commandOf(key("F9")), name("open"));
    EXPECT_EQ(map.commandOf(key("Ctrl+O")), QString());
    EXPECT_EQ(map.differences()[name("open")], (QStringList{name("Ctrl+J"), name("F9")}));
}

TEST_F(Keys, OfAnotherCommandAreRefusedWithItsName)
{
    QString other;
    EXPECT_EQ(map.setKeys(name("phase"), {key("F9"), key("Ctrl+O")}, &other), EResult::eTaken);
    EXPECT_EQ(other, name("open"));
    EXPECT_TRUE(map.keys(name("phase")).isEmpty());
    EXPECT_EQ(map.setKeys(name("open"), {key("Ctrl+O")}, &other), EResult::eDone) << "its own key";
}

TEST_F(Keys, ThatPanesMoveOrChooseByAreRefused)
{
    for (const char* text : {"Up", "Left", "Home", "PgDown", "Return", "Enter", "Esc", "Tab"})
        EXPECT_EQ(map.setKeys(name("phase"), {key(text)}), EResult::eReserved) << text;
    for (const char* text : {"Ctrl+Up", "Shift+Left", ".", "F1", "Ctrl+Home"})
        EXPECT_EQ(map.setKeys(name("phase"), {key(text)}), EResult::eDone) << text;
}

TEST_F(Keys, AreOnePressThatIsMoreThanAModifier)
{
    EXPECT_EQ(map.setKeys(name("phase"), {key("Ctrl+K, Ctrl+B")}), EResult::eReserved);
    EXPECT_EQ(map.setKeys(name("phase"), {QKeySequence()}), EResult::eReserved);
    EXPECT_EQ(map.setKeys(name("phase"), {QKeySequence(Qt::Key_Control | Qt::CTRL)}), EResult::eReserved);
}

TEST_F(Keys, OfAnUnknownCommandAreRefused)
{
    EXPECT_EQ(map.setKeys(name("nothing"), {key("F9")}), EResult::eUnknown);
    EXPECT_EQ(map.commandOf(key("F9")), QString());
}

TEST_F(Keys, GoBackToTheUsualOnesAloneOrAllTogether)
{
    map.setKeys(name("open"), {key("F8")});
    map.setKeys(name("play"), {});
    EXPECT_EQ(map.reset(name("open")), EResult::eDone);
    EXPECT_TRUE(map.isUsual(name("open")));
    EXPECT_FALSE(map.isUsual(name("play")));
    map.resetAll();
    EXPECT_EQ(map.keys(name("play")), QList<QKeySequence>{key("Space")});
    EXPECT_TRUE(map.differences().isEmpty());
}

TEST_F(Keys, DoNotGoBackOntoAKeyThatAnotherHasByNow)
{
    map.setKeys(name("open"), {key("F8")});
    map.setKeys(name("phase"), {key("Ctrl+O")});
    QString other;
    EXPECT_EQ(map.reset(name("open"), &other), EResult::eTaken);
    EXPECT_EQ(other, name("phase"));
    EXPECT_EQ(map.keys(name("open")), QList<QKeySequence>{key("F8")});
}

TEST_F(Keys, OfAFileComeBack)
{
    map.setKeys(name("open"), {key("F8")});
    map.setKeys(name("play"), {});
    KeyMap other;
    other.add(name("open"), {key("Ctrl+O")});
    other.add(name("play"), {key("Space")});
    other.setDifferences(map.differences());
    EXPECT_EQ(other.keys(name("open")), QList<QKeySequence>{key("F8")});
    EXPECT_TRUE(other.keys(name("play")).isEmpty());
    other.setDifferences({});
    EXPECT_TRUE(other.isUsual(name("open")));
}

TEST_F(Keys, OfAFileMayBeExchangedBetweenTwoCommands)
{
    map.setDifferences({{name("open"), {name("Space")}}, {name("play"), {name("Ctrl+O")}}});
    EXPECT_EQ(map.commandOf(key("Space")), name("open"));
    EXPECT_EQ(map.commandOf(key("Ctrl+O")), name("play"));
}

TEST_F(Keys, OfAFileThatMeanNothingArePassedOver)
{
    map.setDifferences({{name("open"), {name("Ctrl+Nonsense"), name("Up")}},
                        {name("phase"), {name("Space"), name("F8")}},
                        {name("none such"), {name("F7")}}});
    EXPECT_EQ(map.keys(name("open")), QList<QKeySequence>{key("Ctrl+O")}) << "none of them can be had";
    EXPECT_EQ(map.keys(name("phase")), QList<QKeySequence>{key("F8")}) << "the other one is taken";
    EXPECT_EQ(map.keys(name("play")), QList<QKeySequence>{key("Space")});
}

TEST_F(Keys, OfAFileWaitForACommandThatComesLater)
{
    map.setDifferences({{name("addPane_chart"), {name("Ctrl+Shift+C")}}});
    EXPECT_EQ(map.differences().size(), 1) << "a run without that pane does not forget it";
    map.add(name("addPane_chart"), {});
    EXPECT_EQ(map.commandOf(key("Ctrl+Shift+C")), name("addPane_chart"));
}

TEST(Commands, HaveNamesOfTheirOwnAndKeysThatCanBeHad)
{
    std::set<std::string> ids;
    std::set<std::string> keys;
    for (const host::Command& command : host::commands()) {
        EXPECT_TRUE(ids.insert(command.id).second) << command.id;
        EXPECT_FALSE(std::string(command.text).empty()) << command.id;
        if (!*command.keys)
            continue;
        EXPECT_TRUE(KeyMap::mayBeHad(key(command.keys))) << command.id;
        EXPECT_TRUE(keys.insert(key(command.keys).toString().toStdString()).second) << command.id;
    }
}

} // namespace
} // namespace window_tests
