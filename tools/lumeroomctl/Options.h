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
    bool help = false;
    bool version = false;
};

/// Reads the arguments behind the program's name. Throws a Failure.
Options parseOptions(const QStringList& arguments);

QString helpText();

} // namespace lumeroomctl
