#pragma once

#include <QStringList>

namespace lumeroomctl {

enum Status { kDone = 0, kFailed = 1, kBadUsage = 2, kNotRunning = 3 };

/// Ends the command with this status and says why.
struct Failure {
    Status status;
    QString message;
    QStringList more = {}; ///< further lines
};

} // namespace lumeroomctl
