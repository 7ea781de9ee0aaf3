#include "app/application_places.h"
#include "app/command_line.h"
#include "app/quit_signals.h"
#include "app/tessaview3_app.h"
#include "app/window_host.h"

#include <clocale>
#include <cstdio>

#include <QApplication>
#include <QIcon>

namespace {

using namespace tessaview;

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int run(const CommandLine& commandLine)
{
    const DriverPatience patience = DriverPatience::ofThisUser();
    WindowHost host(patience.start);
    CTessaview3App application(host, ApplicationPlaces::ofThisUser(commandLine.log),
                               commandLine.captures, patience);
    const QuitSignals quitSignals([&] { host.quit(); });
    int exitStatus = application.InitInstance() ? 0 : kExitNotStarted;
    if (exitStatus == 0 && !host.isQuitting())
        exitStatus = QApplication::exec();
    host.closeDocument();
    application.ExitInstance();
    // A driver that still runs in a call must not see the program taken apart.
    if (PendingCall::unfinished() > 0)
        CTessaview3App::endProcess(exitStatus);
    return exitStatus;
}

} // namespace

int main(int argc, char** argv)
{
    const ParsedCommandLine parsed = parseCommandLine(argc, argv);
    if (!parsed.options)
        return parsed.exitStatus;
    if (!hasDisplay()) {
        std::fputs("tessaview3: there is no display to show a window on; tessaview3-scan does the "
                   "same work in a shell\n",
                   stderr);
        return kExitNotStarted;
    }
    int noArguments = 1;
    const QApplication qt(noArguments, argv);
    // The toolkit takes over the user's locale; numbers are shown with a point all the same.
    std::setlocale(LC_NUMERIC, "C"); // NOLINT(concurrency-mt-unsafe): no other thread runs yet
    QApplication::setApplicationName(QStringLiteral("Tessaview3"));
    QApplication::setDesktopFileName(QStringLiteral("tessaview3"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/tessaview3.png")));
    return run(*parsed.options);
}
