#pragma once

#include <QObject>

namespace lumeroom {

class Log;

/// Keeps the program's windows off the task bar and the pager.
class HiddenDockIcon : public QObject {
    Q_OBJECT

public:
    /// Takes effect on the windows that are shown from now on.
    explicit HiddenDockIcon(Log& log);

    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace lumeroom
