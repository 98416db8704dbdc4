#pragma once

#include <QStringList>

namespace lumeroom {

/// The columns that the text takes on a terminal: East Asian wide characters take two, marks that
/// join the character before them none.
int columnsOf(const QString& text);

/// The text with a blank for each control character: names come from the network, and must not move
/// the cursor or change the terminal's colours.
QString printable(const QString& text);

/// The rows in lines, with each column as wide as its widest text.
QString tableOf(const QList<QStringList>& rows);

} // namespace lumeroom
