#pragma once

#include <QStringList>

namespace lumeroom {

/// The columns that the text takes on a terminal: East Asian wide characters take two, marks that
/// join the character before them none.
int columnsOf(const QString& text);

/// The text with a blank for each character that works the terminal or turns the direction of the
/// text: names come from the network.
QString printable(const QString& text);

/// The same for JSON, where such a character has an escape.
QString printableJson(const QString& json);

/// The rows in lines, with each column as wide as its widest text.
QString tableOf(const QList<QStringList>& rows);

} // namespace lumeroom
