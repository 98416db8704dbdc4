#pragma once

#include "base/RunLoop.h"
#include "engine/Records.h"

#include <QString>

class QWidget;

namespace lumeroom {

class LampRegistry;

/// The lamps as a table of text: name, product, address, power and brightness.
std::string lampTable(const Lamps& lamps);

/// Waits until the panel shows the lamps that answer, prints them as a table, and saves a picture
/// of the panel. For machines without a display.
class Snapshot {
public:
    Snapshot(RunLoop& runLoop, const LampRegistry& registry, QWidget& panel, QString file);

    /// Calls `done` with what went wrong, or nothing: no lamp was found, or the picture cannot be
    /// saved.
    void start(std::function<void(const std::string& wrong)> done);

private:
    void look();
    std::string finish();
    std::size_t knownFacts() const;
    bool isComplete() const;

    RunLoop& m_runLoop;
    const LampRegistry& m_registry;
    QWidget& m_panel;
    QString m_file;
    std::function<void(const std::string& wrong)> m_done;
    Timer m_timer;
    int m_looks = 0;
    int m_quietLooks = 0;
    std::size_t m_lastFacts = 0;
};

} // namespace lumeroom
