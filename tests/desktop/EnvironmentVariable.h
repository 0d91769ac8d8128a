#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace quillon {

/// A variable of the environment with another value for the length of a test.
class EnvironmentVariable {
public:
    /// Takes the variable away.
    explicit EnvironmentVariable(const char* name) : name_(name) {
        keep();
        qunsetenv(name);
    }
    EnvironmentVariable(const char* name, const QString& value) : name_(name) {
        keep();
        qputenv(name, value.toUtf8());
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() {
        if (before_)
            qputenv(name_, *before_);
        else
            qunsetenv(name_);
    }

private:
    void keep() {
        if (qEnvironmentVariableIsSet(name_))
            before_ = qgetenv(name_);
    }
    const char* name_;
    std::optional<QByteArray> before_;
};

}  // namespace quillon
