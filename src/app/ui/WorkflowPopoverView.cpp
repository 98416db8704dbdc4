#include "app/ui/WorkflowPopoverView.h"

#include "strips/ui/NameLimit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 6;
constexpr int kCornerRadius = 8;

} // namespace

WorkflowPopoverView::WorkflowPopoverView(const WorkflowPopover& popover, QWidget* parent)
    : QFrame(parent)
    , m_name(new QLineEdit(QString::fromStdString(popover.name), this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
    , m_confirm(new QPushButton(QString::fromStdString(popover.confirm), this))
    , m_close(popover.close)
{
    auto* title = new QLabel(QString::fromStdString(popover.title), this);
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    title->setBuddy(m_name);
    m_name->setAccessibleName(tr("name"));
    m_name->setValidator(new NameLimit(m_name));
    m_name->selectAll();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_confirm);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(title);
    column->addWidget(m_name);
    column->addLayout(buttons);
    setAccessibleName(title->text());
    setCursor(Qt::OpenHandCursor);
    for (QWidget* control : {static_cast<QWidget*>(m_name), static_cast<QWidget*>(m_cancel),
             static_cast<QWidget*>(m_confirm)})
        control->setCursor(Qt::ArrowCursor);
    m_name->setCursor(Qt::IBeamCursor);
    m_confirm->setDefault(true);

    connect(m_cancel, &QPushButton::clicked, this, [this] { press(WorkflowPopover::kCancelTag); });
    connect(
        m_confirm, &QPushButton::clicked, this, [this] { press(WorkflowPopover::kConfirmTag); });
    makeKeys();

    const QSize least(
        static_cast<int>(popover.contentSize.width), static_cast<int>(popover.contentSize.height));
    const int width = std::max(least.width(), column->sizeHint().width());
    const int height
        = column->hasHeightForWidth() ? column->heightForWidth(width) : sizeHint().height();
    resize(width, std::max(least.height(), height));
}

// They hold in the whole window: after the last lamp is picked, the focus is on its strip.
void WorkflowPopoverView::makeKeys()
{
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, m_cancel,
        &QAbstractButton::click);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
            [this] { (m_cancel->hasFocus() ? m_cancel : m_confirm)->click(); });
    }
}

// What is called takes the popover away, and may show a message before that.
void WorkflowPopoverView::press(int tag)
{
    if (const auto close = std::exchange(m_close, nullptr))
        close(tag, m_name->text().toStdString());
}

void WorkflowPopoverView::takeFocus()
{
    raise();
    m_name->setFocus(Qt::PopupFocusReason);
}

void WorkflowPopoverView::placeBeside(const QRect& rectangle)
{
    const QRect room = parentWidget()->rect();
    const QRect target = rectangle.intersected(room);
    const QPoint middle = target.center() - QPoint(width() / 2, height() / 2);
    const auto clamped = [](int value, int least, int most) {
        return std::clamp(value, least, std::max(least, most));
    };
    const int x = clamped(middle.x(), 0, room.width() - width());
    const int y = clamped(middle.y(), 0, room.height() - height());
    const QPoint beside[] = {
        {target.right() + 1 + kGap, y},
        {target.left() - kGap - width(), y},
        {x, target.bottom() + 1 + kGap},
        {x, target.top() - kGap - height()},
    };
    const auto* free = std::find_if(std::begin(beside), std::end(beside),
        [&](const QPoint& place) { return room.contains(QRect(place, size())); });
    move(free == std::end(beside) ? QPoint(x, y) : *free);
}

void WorkflowPopoverView::keepInside()
{
    const QSize room = parentWidget()->size() - size();
    move(std::clamp(x(), 0, std::max(0, room.width())),
        std::clamp(y(), 0, std::max(0, room.height())));
}

void WorkflowPopoverView::mousePressEvent(QMouseEvent* event)
{
    m_grip = event->position().toPoint();
}

void WorkflowPopoverView::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    move(mapToParent(event->position().toPoint()) - m_grip);
    keepInside();
}

void WorkflowPopoverView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor outline = palette().color(QPalette::WindowText);
    outline.setAlphaF(0.35F);
    painter.setPen(outline);
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius, kCornerRadius);
}

} // namespace lumeroom
