#pragma once

#include <QScrollArea>

class QBoxLayout;

namespace lumeroom {

struct PanelNotice;

/// A notice over all of its parent: a title, paragraphs and buttons in the middle. Where there is
/// little room the buttons go below each other, and it scrolls.
class NoticeView : public QScrollArea {
    Q_OBJECT

public:
    NoticeView(const PanelNotice& notice, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void addButtons(const PanelNotice& notice);

    QBoxLayout* m_buttons;
    int m_buttonsInARow = 0; ///< the width that they take
};

} // namespace lumeroom
