// The main of every test program: timers and queued signals of the code under test need a running Qt
// application.

#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
