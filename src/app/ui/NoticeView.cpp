#include "app/ui/NoticeView.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <memory>
#include <utility>

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

// It may be one of them that led here.
void removeAll(QBoxLayout& widgets)
{
    while (const std::unique_ptr<QLayoutItem> item{widgets.takeAt(0)}) {
        item->widget()->hide();
        item->widget()->deleteLater();
    }
}

} // namespace

NoticeView::NoticeView(QWidget* parent)
    : QScrollArea(parent)
    , m_title(makeLabel({}, this))
    , m_paragraphs(new QBoxLayout(QBoxLayout::TopToBottom))
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

    QFont large = m_title->font();
    large.setPointSizeF(large.pointSizeF() * kTitleSize);
    large.setBold(true);
    m_title->setFont(large);
    m_buttons->setAlignment(Qt::AlignHCenter);
    column->addStretch();
    column->addWidget(m_title);
    column->addLayout(m_paragraphs);
    column->addSpacing(kGap);
    column->addLayout(m_buttons);
    column->addStretch();

    parent->installEventFilter(this);
    setGeometry(parent->rect());
}

void NoticeView::setNotice(const PanelNotice& notice)
{
    m_title->setText(QString::fromStdString(notice.title));
    setAccessibleName(m_title->text());
    setText(QString::fromStdString(notice.text));
    setActions(notice.actions);
}

void NoticeView::setText(const QString& text)
{
    removeAll(*m_paragraphs);
    for (const QString& paragraph : text.split(u'\n', Qt::SkipEmptyParts))
        m_paragraphs->addWidget(makeLabel(paragraph, this));
}

void NoticeView::setActions(const std::vector<PanelNotice::Action>& actions)
{
    const auto before = std::exchange(m_actions, actions);
    const bool readTheSame = std::equal(before.begin(), before.end(), actions.begin(),
        actions.end(), [](const auto& one, const auto& other) { return one.title == other.title; });
    if (readTheSame)
        return;
    removeAll(*m_buttons);
    m_buttonsInARow = 0;
    for (std::size_t i = 0; i < actions.size(); ++i) {
        auto* button = new QPushButton(QString::fromStdString(actions[i].title), this);
        connect(button, &QPushButton::clicked, this, [this, i] {
            const auto act = m_actions.at(i).act; // which may take this view away
            act();
        });
        m_buttons->addWidget(button, 0, Qt::AlignHCenter);
        m_buttonsInARow += button->sizeHint().width() + kGap;
    }
    layOutButtons();
}

void NoticeView::layOutButtons()
{
    const bool fits = m_buttonsInARow <= std::min(width() - 2 * kMargin, kWidest);
    m_buttons->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

bool NoticeView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QScrollArea::eventFilter(watched, event);
}

void NoticeView::resizeEvent(QResizeEvent* event)
{
    layOutButtons();
    QScrollArea::resizeEvent(event);
}

} // namespace lumeroom
