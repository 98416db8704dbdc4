#include "app/ui/ConsoleWindow.h"

#include <QAction>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace lumeroom {

namespace {
constexpr int kMostLines = 10'000;
}

ConsoleWindow::ConsoleWindow()
    : m_consoleOutputView(new QPlainTextEdit(this))
    , m_field(new QLineEdit(this))
    , m_notFound(new QLabel(tr("Not found"), this))
{
    setWindowTitle(tr("Console"));
    resize(760, 420);
    m_consoleOutputView->setReadOnly(true);
    m_consoleOutputView->setUndoRedoEnabled(false);
    m_consoleOutputView->setMaximumBlockCount(kMostLines + 1); // the last one is still empty
    m_consoleOutputView->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_consoleOutputView->setAccessibleName(tr("log"));
    m_field->setPlaceholderText(tr("Find"));
    m_field->setClearButtonEnabled(true);
    m_notFound->hide();
    auto* previous = new QPushButton(tr("Previous"), this);
    auto* next = new QPushButton(tr("Next"), this);

    auto* findRow = new QHBoxLayout;
    findRow->addWidget(m_field, 1);
    findRow->addWidget(m_notFound);
    findRow->addWidget(previous);
    findRow->addWidget(next);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_consoleOutputView, 1);
    column->addLayout(findRow);

    connect(m_field, &QLineEdit::returnPressed, this, [this] { findNext(); });
    connect(m_field, &QLineEdit::textChanged, m_notFound, &QWidget::hide);
    connect(next, &QPushButton::clicked, this, [this] { findNext(); });
    connect(previous, &QPushButton::clicked, this, [this] { findPrevious(); });
    const auto addShortcut = [this](QKeySequence::StandardKey key, auto action) {
        auto* shortcut = new QAction(this);
        shortcut->setShortcut(key);
        connect(shortcut, &QAction::triggered, this, action);
        addAction(shortcut);
    };
    addShortcut(QKeySequence::Find, [this] {
        m_field->setFocus();
        m_field->selectAll();
    });
    addShortcut(QKeySequence::FindNext, [this] { findNext(); });
    addShortcut(QKeySequence::FindPrevious, [this] { findPrevious(); });
    addShortcut(QKeySequence::Close, [this] { close(); });
}

void ConsoleWindow::append(const QString& text)
{
    QScrollBar* bar = m_consoleOutputView->verticalScrollBar();
    const bool follows = bar->value() == bar->maximum();
    QTextCursor end(m_consoleOutputView->document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    if (follows)
        bar->setValue(bar->maximum());
}

void ConsoleWindow::setSearchText(const QString& text)
{
    m_field->setText(text);
}

QString ConsoleWindow::text() const
{
    return m_consoleOutputView->toPlainText();
}

bool ConsoleWindow::findNext()
{
    return find(false);
}

bool ConsoleWindow::findPrevious()
{
    return find(true);
}

bool ConsoleWindow::find(bool backward)
{
    const auto direction = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = m_consoleOutputView->find(m_field->text(), direction);
    if (!found) {
        const QTextCursor before = m_consoleOutputView->textCursor();
        m_consoleOutputView->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = m_consoleOutputView->find(m_field->text(), direction);
        if (!found)
            m_consoleOutputView->setTextCursor(before);
    }
    m_notFound->setVisible(!found && !m_field->text().isEmpty());
    return found;
}

} // namespace lumeroom
