#include "Commands.h"
#include "Failure.h"
#include "Options.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace lumeroomctl;
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
