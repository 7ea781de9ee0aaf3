#include "tests/support/temporary_folder.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) // NOLINT(bugprone-exception-escape): ends the tests
{
    // No screen is needed, and nothing of the user's is read or written.
    const test::TemporaryFolder home;
    for (const char* const place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(place, QByteArray::fromStdString(home.path().string()));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
