#include "desktop/Table.h"

#include <QChar>

#include <algorithm>
#include <array>

namespace lumeroom {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// The blocks whose characters terminals show two columns wide.
constexpr std::array kWide{Range{0x1100, 0x115F}, Range{0x2E80, 0x303E}, Range{0x3041, 0xA4CF},
    Range{0xAC00, 0xD7A3}, Range{0xF900, 0xFAFF}, Range{0xFE30, 0xFE6F}, Range{0xFF00, 0xFF60},
    Range{0xFFE0, 0xFFE6}, Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF},
    Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD}};

int columnsOf(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        break;
    }
    const bool wide = std::any_of(kWide.begin(), kWide.end(),
        [=](Range range) { return character >= range.first && character <= range.last; });
    return wide ? 2 : 1;
}

} // namespace

int columnsOf(const QString& text)
{
    int columns = 0;
    for (const char32_t character : text.toUcs4())
        columns += columnsOf(character);
    return columns;
}

QString printable(const QString& text)
{
    QString plain = text;
    for (QChar& character : plain) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph)
            character = u' ';
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
