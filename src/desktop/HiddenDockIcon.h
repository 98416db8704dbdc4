#pragma once

#include <QObject>

#include <functional>

namespace lumeroom {

class Log;

/// Keeps the program's windows off the task bar and the pager, and the program running without a
/// window, for as long as the tray offers a way back.
class HiddenDockIcon : public QObject {
    Q_OBJECT

public:
    /// Takes effect on the windows that are shown from now on.
    HiddenDockIcon(std::function<bool()> trayIsThere, std::function<void()> quit, Log& log);
    ~HiddenDockIcon() override;

    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace lumeroom
