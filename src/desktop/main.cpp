#include "desktop/Appearance.h"
#include "desktop/Application.h"
#include "desktop/QuitSignals.h"

#include <QApplication>
#include <QIcon>

#include <csignal>
#include <cstdio>

int main(int argc, char** argv)
{
    using namespace lumeroom;
    constexpr int kBadUsage = 2;

    // Before Qt looks for a display: these need none.
    const CommandLine commandLine
        = parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    if (!commandLine.error.empty()) {
        std::fprintf(stderr, "lumeroom: %s\nTry 'lumeroom --help'.\n", commandLine.error.c_str());
        return kBadUsage;
    }
    if (commandLine.help) {
        std::fputs(helpText().c_str(), stdout);
        return 0;
    }
    if (commandLine.version) {
        std::puts("lumeroom " LUMEROOM_VERSION);
        return 0;
    }

    // A terminal that goes away takes the log with it, not the program.
    std::signal(SIGPIPE, SIG_IGN);
    QuitSignals::hold();

    QApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lumeroom"));
    QApplication::setApplicationVersion(QStringLiteral(LUMEROOM_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tanagerworks.Lumeroom"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/lumeroom.png")));
    applyAppearance(commandLine.appearance);
    Application application(commandLine);
    return application.run();
}
