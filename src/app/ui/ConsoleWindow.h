#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace lumeroom {

/// Shows the newest 10,000 lines of the captured log, with a field to find text in them.
class ConsoleWindow : public QWidget {
    Q_OBJECT

public:
    ConsoleWindow();

    /// Adds text at the end; the view follows it unless the reader has scrolled up.
    void append(const QString& text);
    /// Goes to the next (previous) place of the text in the field, from the start (end) again past
    /// the last. False if the log does not hold it.
    bool findNext();
    bool findPrevious();
    void setSearchText(const QString& text);
    QString text() const;

private:
    bool find(bool backward);

    QPlainTextEdit* m_consoleOutputView;
    QLineEdit* m_field;
    QLabel* m_notFound;
};

} // namespace lumeroom
