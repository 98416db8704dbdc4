#include "strips/ui/NameLimit.h"

#include "engine/WireFormat.h"

#include <QTextBoundaryFinder>

namespace lumeroom {

namespace {

qsizetype bytesOver(const QString& name)
{
    return name.toUtf8().size() - static_cast<qsizetype>(wire::kLabelSize);
}

/// Takes as many characters from before `end` as are too much; the place where they were.
qsizetype shorten(QString& name, qsizetype end)
{
    qsizetype over = bytesOver(name);
    qsizetype start = end;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, name);
    characters.setPosition(end);
    while (over > 0 && start > 0) {
        const qsizetype before = characters.toPreviousBoundary();
        over -= QStringView(name).sliced(before, start - before).toUtf8().size();
        start = before;
    }
    name.remove(start, end - start);
    return start;
}

} // namespace

QValidator::State NameLimit::validate(QString& name, int& cursor) const
{
    cursor = static_cast<int>(shorten(name, cursor));
    shorten(name, name.size()); // one that came too long
    return Acceptable;
}

} // namespace lumeroom
