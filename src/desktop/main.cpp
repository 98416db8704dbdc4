#include "base/DefaultsFile.h"
#include "desktop/Application.h"
#include "desktop/SettingsFile.h"
#include "desktop/Table.h"
#include "desktop/dbus/ProgramIdentity.h"
#include "desktop/dbus/ProgramName.h"

#include <QApplication>
#include <QIcon>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

/// What the desktop gave this start so that its window may take the focus. Qt takes it away.
QString activationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

/// The program runs already: its panel comes forward in place of a second one.
[[noreturn]] void deferTo(const lumeroom::ProgramName& running, const QString& token)
{
    const QString wrong = running.showPanelOfHolder(token);
    if (wrong.isEmpty())
        std::puts("lumeroom: already running; its panel has been brought to the front");
    else
        std::fprintf(stderr, "lumeroom: already running, but it does not answer: %s\n",
            qPrintable(lumeroom::printable(wrong)));
    // Past the destructors of statics: the bus library's own thread may still take in a message,
    // and would complain that its types are gone.
    std::fflush(nullptr);
    std::_Exit(wrong.isEmpty() ? 0 : 1);
}

/// The exit status.
int refuseSettings(int status, const QString& file, const std::string& why)
{
    std::fprintf(stderr, "lumeroom: cannot keep settings in '%s': %s\n",
        qPrintable(lumeroom::printable(file)), why.c_str());
    return status;
}

/// Where a standard stream was closed, the next file to be opened would take its place, and get
/// what is written to the stream.
void openStandardStreams()
{
    int opened = STDIN_FILENO;
    while (opened >= 0 && opened <= STDERR_FILENO)
        opened = ::open("/dev/null", O_RDWR);
    if (opened > STDERR_FILENO)
        ::close(opened);
}

} // namespace

int main(int argc, char** argv)
{
    using namespace lumeroom;
    constexpr int kBadUsage = 2;
    openStandardStreams();

    // Before Qt looks for a display: these need none.
    const CommandLine commandLine = parseCommandLine({argv + 1, argv + argc}, LUMEROOM_VERSION);
    if (!commandLine.error.empty()) {
        const QString error = printable(QString::fromStdString(commandLine.error));
        std::fprintf(stderr, "lumeroom: %s\nTry 'lumeroom --help'.\n", qPrintable(error));
        return kBadUsage;
    }
    if (!commandLine.answer.empty()) {
        std::fputs(commandLine.answer.c_str(), stdout);
        return 0;
    }

    const QString defaultsFile = QString::fromStdString(commandLine.defaultsFile);
    const std::string wrong = DefaultsFile::reasonToRefuse(commandLine.defaultsFile);
    if (!wrong.empty())
        return refuseSettings(kBadUsage, defaultsFile, wrong);

    // A reader of the log that goes away takes the log with it, not the program.
    std::signal(SIGPIPE, SIG_IGN);

    const QString token = activationToken();
    QApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lumeroom"));
    QApplication::setApplicationVersion(QStringLiteral(LUMEROOM_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.tanagerworks.Lumeroom"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/lumeroom.png")));
    // A snapshot is over soon, and shows what it found, not what another program shows.
    const QString file = settingsFile(commandLine.demo, defaultsFile);
    const ProgramName name(commandLine.snapshotFile.empty() ? serviceName(file) : QString());
    if (name.isTaken())
        deferTo(name, token);
    // Without a bus nobody can be brought to the front. A snapshot writes nothing then.
    if (commandLine.snapshotFile.empty() && DefaultsFile::isInUse(file.toStdString()))
        return refuseSettings(1, file,
            "another program has them in use, which cannot be reached over the session bus");
    Application application(commandLine, name);
    return application.run();
}
