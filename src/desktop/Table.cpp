#include "desktop/Table.h"

#include <utf8proc.h>

#include <algorithm>

namespace lumeroom {

namespace {

/// Also those that turn the direction of the text around them, which could make a line read as
/// another.
bool worksTheTerminal(QChar character)
{
    const char16_t code = character.unicode();
    const bool turnsText = code == 0x061C || code == 0x200E || code == 0x200F
        || (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    const QChar::Category category = character.category();
    return turnsText || category == QChar::Other_Control || category == QChar::Separator_Line
        || category == QChar::Separator_Paragraph;
}

} // namespace

int columnsOf(const QString& text)
{
    int columns = 0;
    for (const char32_t character : text.toUcs4())
        columns += utf8proc_charwidth(static_cast<utf8proc_int32_t>(character));
    return columns;
}

QString printable(const QString& text)
{
    QString plain = text;
    std::replace_if(plain.begin(), plain.end(), worksTheTerminal, QChar(u' '));
    return plain;
}

QString printableJson(const QString& json)
{
    QString plain;
    for (const QChar character : json) {
        if (character != u'\n' && worksTheTerminal(character))
            plain += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            plain += character;
    }
    return plain;
}

QString tableOf(const QList<QStringList>& rows)
{
    QList<int> widths;
    for (const QStringList& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], columnsOf(row[i]));
    }
    QString table;
    for (const QStringList& row : rows) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i)
            line += row[i] + QString(widths[i] - columnsOf(row[i]) + 2, u' ');
        while (line.endsWith(u' '))
            line.chop(1);
        table += line + u'\n';
    }
    return table;
}

} // namespace lumeroom
