#pragma once

#include <QStringList>

namespace lumeroomctl {

struct Options {
    QString command;
    QStringList arguments; ///< of the command; as many as it takes
    bool json = false;
    bool names = false; ///< in place of the table
    bool demo = false;
    QString defaultsFile; ///< empty: the usual one
    QString answer; ///< to be printed in place of a command: help, or the version
};

/// Reads the arguments behind the program's name. Throws a Failure.
Options parseOptions(int argc, char** argv);

} // namespace lumeroomctl
