// The main of the test programs of widgets: no display is needed, and a pixel of text is the same everywhere.

#include <QApplication>
#include <QFontMetrics>
#include <QTextStream>

#include <gmock/gmock.h>

namespace {

constexpr uint kIdeographicZero =
    0x3007; // the rarest letter of the panels: a face that has it has the others

void setUnlessGiven(const char* name, const char* value)
{
    if (!qEnvironmentVariableIsSet(name))
        qputenv(name, value);
}

bool hasChineseFace()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("WenQuanYi Micro Hei")});
    return QFontMetrics(font).inFontUcs4(kIdeographicZero);
}

} // namespace

int main(int argc, char** argv)
{
    setUnlessGiven("QT_QPA_PLATFORM", "offscreen");
    setUnlessGiven("QT_FONT_DPI", "96");
    setUnlessGiven("QTEST_FUNCTION_TIMEOUT", "20000");
    QApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    // The list of tests is asked for by the build, which does not need the font.
    if (!::testing::GTEST_FLAG(list_tests) && !hasChineseFace()) {
        QTextStream(stderr)
            << "No font with Chinese letters: install fonts-dejavu-core and fonts-wqy-microhei "
               "(scripts/install-dependencies.sh does).\n";
        return 1;
    }
    return RUN_ALL_TESTS();
}
