#include "app/ui/NoticeView.h"

#include "app/PanelNotice.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace lumeroom {

namespace {

constexpr int kMargin = 6; // at least
constexpr int kGap = 10;
constexpr int kWidest = 420;
constexpr double kTitleSize = 1.3;

QLabel* makeLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

NoticeView::NoticeView(const PanelNotice& notice, QWidget* parent)
    : QScrollArea(parent)
    , m_buttons(new QBoxLayout(QBoxLayout::LeftToRight))
{
    auto* page = new QWidget;
    auto* middle = new QWidget(page);
    middle->setMaximumWidth(kWidest);
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    row->addStretch(1);
    row->addWidget(middle, kWidest); // before the room beside it
    row->addStretch(1);
    auto* column = new QVBoxLayout(middle);
    column->setSpacing(kGap);
    setWidget(page);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(QString::fromStdString(notice.title));

    column->addStretch();
    auto* title = makeLabel(QString::fromStdString(notice.title), middle);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * kTitleSize);
    large.setBold(true);
    title->setFont(large);
    column->addWidget(title);
    const QString text = QString::fromStdString(notice.text);
    for (const QString& paragraph : text.split(u'\n', Qt::SkipEmptyParts))
        column->addWidget(makeLabel(paragraph, middle));
    column->addSpacing(kGap);
    column->addLayout(m_buttons);
    addButtons(notice);
    column->addStretch();

    parent->installEventFilter(this);
    setGeometry(parent->rect());
}

void NoticeView::addButtons(const PanelNotice& notice)
{
    m_buttons->setAlignment(Qt::AlignHCenter);
    for (const PanelNotice::Action& action : notice.actions) {
        auto* button = new QPushButton(QString::fromStdString(action.title), this);
        connect(button, &QPushButton::clicked, this, action.act);
        m_buttons->addWidget(button, 0, Qt::AlignHCenter);
        m_buttonsInARow += button->sizeHint().width() + kGap;
    }
}

bool NoticeView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QScrollArea::eventFilter(watched, event);
}

void NoticeView::resizeEvent(QResizeEvent* event)
{
    const bool fits = m_buttonsInARow <= std::min(width() - 2 * kMargin, kWidest);
    m_buttons->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    QScrollArea::resizeEvent(event);
}

} // namespace lumeroom
