#include "app/ui/WorkflowPopoverView.h"

#include "strips/ui/CardLook.h"
#include "strips/ui/ElidedLabel.h"
#include "strips/ui/NameLimit.h"
#include "strips/ui/SelectionBox.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace lumeroom {

namespace {

constexpr int kGap = 8;
constexpr int kWideGap = 18; // between name and summary on one line
constexpr int kLeastName = 160;
constexpr int kMostName = 280;
constexpr int kLeastSummary = 150;

QLabel* makeLabel(const std::string& text, QWidget* parent)
{
    auto* label = new QLabel(QString::fromStdString(text), parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

WorkflowPopoverView::WorkflowPopoverView(const WorkflowPopover& popover, QWidget* parent)
    : PopoverFrame(parent)
    , m_popover(popover)
    , m_title(makeLabel(popover.title, this))
    , m_summary(makeLabel({}, this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
    , m_confirm(new QPushButton(QString::fromStdString(popover.confirm), this))
    , m_parts(new QBoxLayout(QBoxLayout::TopToBottom, this))
    , m_head(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_foot(new QBoxLayout(QBoxLayout::LeftToRight))
    , m_buttons(new QBoxLayout(QBoxLayout::LeftToRight))
{
    setContentsMargins(kCardMargin, kCardMargin, kCardMargin, kCardMargin);
    setAccessibleName(m_title->text());
    m_parts->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    for (QBoxLayout* box : {m_parts, m_head, m_foot, m_buttons})
        box->setSpacing(kGap);
    m_parts->addLayout(m_head);
    m_parts->addLayout(m_foot, 1);
    makeHead();
    makeFoot();
    makeKeys();
    showState();
}

void WorkflowPopoverView::makeHead()
{
    m_title->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    m_head->addWidget(m_title);
    if (m_popover.asksForName) {
        m_field = new QLineEdit(QString::fromStdString(m_popover.name), this);
        m_field->setMinimumWidth(kLeastName);
        m_field->setPlaceholderText(tr("Name"));
        m_field->setAccessibleName(tr("name"));
        m_field->setValidator(new NameLimit(m_field));
        m_field->selectAll();
        m_title->setBuddy(m_field);
        m_head->addWidget(m_field, 1);
        connect(m_field, &QLineEdit::textChanged, this, &WorkflowPopoverView::showState);
        return;
    }
    m_nameText.setText(m_popover.name);
    m_name = new ElidedLabel(m_nameText, this);
    QFont bold = m_name->font();
    bold.setBold(true);
    m_name->setFont(bold);
    m_head->addWidget(m_name, 1);
}

void WorkflowPopoverView::makeFoot()
{
    m_summary->setWordWrap(true);
    m_confirm->setDefault(true);
    m_buttons->addWidget(m_cancel);
    m_buttons->addWidget(m_confirm);
    m_foot->addWidget(m_summary, 1);
    m_foot->addLayout(m_buttons);
    connect(m_cancel, &QPushButton::clicked, this, [this] { press(WorkflowPopover::kCancelTag); });
    connect(
        m_confirm, &QPushButton::clicked, this, [this] { press(WorkflowPopover::kConfirmTag); });
}

// They hold in the whole window: after the last lamp is picked, the focus is on its strip.
void WorkflowPopoverView::makeKeys()
{
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, m_cancel,
        &QAbstractButton::click);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
            &WorkflowPopoverView::takeReturn);
    }
}

/// A button elsewhere in the window has no use for it, but is not what confirms.
void WorkflowPopoverView::takeReturn()
{
    const QWidget* focus = window()->focusWidget();
    const bool isElsewhere = focus && !isAncestorOf(focus);
    if (isElsewhere && qobject_cast<const QAbstractButton*>(focus)
        && !qobject_cast<const SelectionBox*>(focus))
        return;
    (m_cancel->hasFocus() ? m_cancel : m_confirm)->click();
}

// What is called takes the popover away, and may show a message before that.
void WorkflowPopoverView::press(int tag)
{
    if (const auto close = std::exchange(m_popover.close, nullptr))
        close(tag, name());
}

std::string WorkflowPopoverView::name() const
{
    return m_field ? m_field->text().toStdString() : m_popover.name;
}

void WorkflowPopoverView::showState()
{
    const WorkflowState state = m_popover.state(name());
    m_confirm->setEnabled(state.canConfirm);
    m_summary->setText(QString::fromStdString(state.summary));
    m_confirm->setAccessibleDescription(m_summary->text());
}

QWidget* WorkflowPopoverView::nameField() const
{
    return m_field;
}

/// The width of what stands under each other does not keep the window from getting narrower.
QSize WorkflowPopoverView::minimumSizeHint() const
{
    return {0, PopoverFrame::minimumSizeHint().height()};
}

void WorkflowPopoverView::resizeEvent(QResizeEvent* event)
{
    PopoverFrame::resizeEvent(event);
    const int room = contentsRect().width() - 2 * kPadding;
    const int title = m_title->sizeHint().width();
    const int wholeName = m_field ? kLeastName : m_name->sizeHint().width();
    const int head = title + kGap + std::min(wholeName, kMostName);
    const int buttons = m_cancel->sizeHint().width() + kGap + m_confirm->sizeHint().width();
    const int foot = kLeastSummary + kGap + buttons;
    const auto beside = [room](int width) {
        return width <= room ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    };
    m_parts->setDirection(beside(head + kWideGap + foot));
    m_parts->setSpacing(m_parts->direction() == QBoxLayout::LeftToRight ? kWideGap : kGap);
    m_head->setDirection(beside(head));
    m_foot->setDirection(beside(foot));
    m_buttons->setDirection(beside(buttons));
}

void WorkflowPopoverView::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(rect(), panelGround(*this));
    PopoverFrame::paintEvent(event);
}

} // namespace lumeroom
