#pragma once

#include "app/PanelNotice.h"

#include <QScrollArea>

class QBoxLayout;
class QLabel;

namespace lumeroom {

/// A notice over all of its parent: a title, paragraphs and buttons in the middle. Where there is
/// little room the buttons go below each other, and it scrolls.
class NoticeView : public QScrollArea {
    Q_OBJECT

public:
    explicit NoticeView(QWidget* parent);

    /// Buttons of the same titles stay, for one may be under the hand.
    void setNotice(const PanelNotice& notice);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void setText(const QString& text);
    void setActions(const std::vector<PanelNotice::Action>& actions);
    void layOutButtons();

    QLabel* m_title;
    QBoxLayout* m_paragraphs;
    QBoxLayout* m_buttons;
    std::vector<PanelNotice::Action> m_actions;
    int m_buttonsInARow = 0; ///< the width that they take
};

} // namespace lumeroom
