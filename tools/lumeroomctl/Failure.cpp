#include "Failure.h"

#include "desktop/Table.h"

#include <cstdio>

namespace lumeroomctl {

QString withinSentence(const QString& sentence)
{
    QString text = sentence;
    if (text.endsWith(u'.'))
        text.chop(1);
    const bool isWordOfCapitals = text.size() > 1 && text[1].isUpper();
    return isWordOfCapitals ? text : text.left(1).toLower() + text.mid(1);
}

void complain(const QString& what)
{
    if (what.isEmpty())
        return;
    // What is wrong may be a name from the network, or one that a program was given.
    const QString line = lumeroom::printable(QStringLiteral("lumeroomctl: ") + what);
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
}

} // namespace lumeroomctl
