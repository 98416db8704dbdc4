#pragma once

#include <QValidator>

namespace lumeroom {

/// Keeps a name field to what a lamp has room for, 32 bytes of UTF-8, in whole characters. What is
/// too much goes from the end of what was put in, so that the name is always one to take.
class NameLimit : public QValidator {
    Q_OBJECT

public:
    using QValidator::QValidator;
    State validate(QString& name, int& cursor) const override;
};

} // namespace lumeroom
