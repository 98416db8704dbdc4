#include "Commands.h"
#include "Failure.h"
#include "Options.h"
#include "desktop/Table.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace lumeroomctl {

namespace {

/// The exit status.
int run(int argc, char** argv)
{
    try {
        const Options options = parseOptions(argc, argv);
        const QCoreApplication application(argc, argv);
        if (options.answer.isEmpty())
            return runCommand(options);
        std::fputs(options.answer.toUtf8().constData(), stdout);
        return kDone;
    } catch (const Failure& failure) {
        complain(failure.message);
        for (const QString& line : failure.more)
            std::fprintf(stderr, "%s\n", lumeroom::printable(line).toUtf8().constData());
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
