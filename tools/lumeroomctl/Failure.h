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

/// What others say in a sentence, without its capital and full stop: it stands behind a colon.
QString withinSentence(const QString& sentence);
/// Says it on standard error, if there is anything to say.
void complain(const QString& what);

} // namespace lumeroomctl
