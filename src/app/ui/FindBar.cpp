#include "app/ui/FindBar.h"

#include "strips/ui/IconButton.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace lumeroom {

namespace {

constexpr int kMargin = 6;
constexpr int kWidest = 420; // of the field
constexpr int kLongest = 64; // characters

bool isTyping(const QKeyEvent& event)
{
    constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    return !(event.modifiers() & kCommands) && !text.isEmpty()
        && (text.at(0).isLetterOrNumber() || text.at(0).isHighSurrogate());
}

} // namespace

FindBar::FindBar(FindActions actions, QWidget* parent)
    : QWidget(parent)
    , m_actions(std::move(actions))
    , m_field(new QLineEdit(this))
    , m_sign(m_field->addAction(icon(Icon::Search, palette()), QLineEdit::LeadingPosition))
    , m_count(new QLabel(this))
    , m_cross(new IconButton(Icon::Close, tr("Show all"), this))
{
    m_field->setPlaceholderText(tr("Find a lamp"));
    m_field->setAccessibleName(tr("Find a lamp"));
    m_field->setMaxLength(kLongest);
    m_field->setMaximumWidth(kWidest);
    m_field->installEventFilter(this);
    m_count->setAlignment(Qt::AlignCenter);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    row->setSpacing(kMargin);
    row->addWidget(m_field, kWidest);
    row->addWidget(m_count);
    row->addWidget(m_cross);
    row->addStretch(1);
    connect(m_field, &QLineEdit::textChanged, this,
        [this](const QString& text) { m_actions.look(text.toStdString()); });
    connect(m_cross, &QAbstractButton::clicked, this, [this] { m_actions.close(); });
    hide();
}

void FindBar::open()
{
    m_actions.open();
    if (isHidden())
        return; // there is nothing to find
    if (!m_field->hasFocus())
        m_focusBefore = window()->focusWidget();
    m_field->setFocus(Qt::ShortcutFocusReason);
    m_field->selectAll();
}

void FindBar::showCount(FoundCount count)
{
    m_count->setText(tr("%1 of %2").arg(count.found).arg(count.all));
    m_field->setAccessibleDescription(m_count->text());
    show();
}

void FindBar::close()
{
    const QWidget* focus = window()->focusWidget();
    const bool hadFocus = focus && isAncestorOf(focus);
    hide();
    const QSignalBlocker blocker(m_field);
    m_field->clear();
    if (hadFocus && m_focusBefore && m_focusBefore->isEnabled() && m_focusBefore->isVisible())
        m_focusBefore->setFocus();
    m_focusBefore.clear();
}

// The first letter goes to the field as a key and not as a text, for what it becomes is the
// business of the input method.
bool FindBar::take(QKeyEvent& event)
{
    if (event.key() == Qt::Key_Escape && !isHidden()) {
        m_actions.close();
        return true;
    }
    if (!isTyping(event) || (isHidden() && !m_actions.opensByTyping()))
        return false;
    open();
    m_field->end(false);
    QCoreApplication::sendEvent(m_field, &event);
    return true;
}

void FindBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        m_sign->setIcon(icon(Icon::Search, palette()));
    QWidget::changeEvent(event);
}

/// Escape and Return are the field's before they are anybody's shortcut.
bool FindBar::eventFilter(QObject* watched, QEvent* event)
{
    const bool before = event->type() == QEvent::ShortcutOverride;
    if (!before && event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isEscape = key == Qt::Key_Escape;
    if (!isEscape && key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    event->accept();
    if (isEscape && !before)
        m_actions.close();
    return true;
}

} // namespace lumeroom
