#include "app/ui/AddressesEditor.h"

#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include <cmath>

namespace lumeroom {

namespace {
constexpr Seconds kPause(1.0);
constexpr int kLinesShown = 5;
} // namespace

AddressesEditor::AddressesEditor(
    const Setting& setting, UserDefaults& defaults, RunLoop& runLoop, QWidget* parent)
    : SettingEditor(setting, defaults, parent)
    , m_runLoop(runLoop)
    , m_field(new QPlainTextEdit(this))
    , m_summary(new QLabel(this))
{
    m_field->setTabChangesFocus(true);
    m_field->setPlaceholderText(tr("192.168.1.20"));
    const double lines = QFontMetricsF(m_field->font()).lineSpacing() * kLinesShown;
    // Without the margin at the end, where a line cut in two would show.
    const double around = 2 * m_field->frameWidth() + m_field->document()->documentMargin();
    m_field->setFixedHeight(static_cast<int>(std::ceil(lines + around)));
    m_field->installEventFilter(this);
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    setControl(m_field, m_summary);
    connect(m_field, &QPlainTextEdit::textChanged, this, [this] { textChanged(); });
}

void AddressesEditor::showValue()
{
    const QString text = QString::fromStdString(textFor(setting(), defaults()));
    if (!m_pause.isPending() && text != m_field->toPlainText()) {
        const QSignalBlocker blocker(m_field);
        m_field->setPlainText(text);
    }
    m_summary->setText(
        QString::fromStdString(addressListSummary(m_field->toPlainText().toStdString())));
}

void AddressesEditor::textChanged()
{
    m_pause = m_runLoop.after(kPause, [this] { commit(); });
    showValue(); // of what is typed
}

void AddressesEditor::commit()
{
    m_pause.cancel();
    storeText(setting(), m_field->toPlainText().toStdString(), defaults());
}

bool AddressesEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && m_pause.isPending())
        commit();
    return SettingEditor::eventFilter(watched, event);
}

void AddressesEditor::hideEvent(QHideEvent* event)
{
    if (m_pause.isPending())
        commit();
    SettingEditor::hideEvent(event);
}

} // namespace lumeroom
