#pragma once

#include "app/FindModel.h"

#include <QPointer>
#include <QWidget>

class QAction;
class QKeyEvent;
class QLabel;
class QLineEdit;

namespace lumeroom {

class IconButton;

/// Above the strips: a field for the name of a lamp, how many there are, and a cross.
class FindBar : public QWidget {
    Q_OBJECT

public:
    FindBar(FindActions actions, QWidget* parent);

    /// Brings the keyboard to the field.
    void open();
    void showCount(FoundCount count);
    /// Gives the keyboard back to where it was, if it still is in the field.
    void close();
    /// A key that no control has use for. True if it was one for the field.
    bool take(QKeyEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    FindActions m_actions;
    QLineEdit* m_field;
    QAction* m_sign;
    QLabel* m_count;
    IconButton* m_cross;
    QPointer<QWidget> m_focusBefore;
};

} // namespace lumeroom
