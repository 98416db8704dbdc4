#include "Commands.h"
#include "Failure.h"
#include "Options.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace lumeroomctl {

namespace {

/// The exit status.
int run(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        const Options options = parseOptions(QCoreApplication::arguments().sliced(1));
        if (options.help)
            std::fputs(helpText().toUtf8().constData(), stdout);
        else if (options.version)
            std::puts("lumeroomctl " LUMEROOM_VERSION);
        else
            return runCommand(options);
        return kDone;
    } catch (const Failure& failure) {
        std::fprintf(stderr, "lumeroomctl: %s\n", failure.message.toUtf8().constData());
        return failure.status;
    }
}

} // namespace

} // namespace lumeroomctl

int main(int argc, char** argv)
{
    const int status = lumeroomctl::run(argc, argv);
    // Past the destructors of statics: the bus library's own thread may still take in a message,
    // and would complain that its types are gone.
    std::fflush(nullptr);
    std::_Exit(status);
}
