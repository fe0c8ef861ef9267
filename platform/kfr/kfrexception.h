/// \file
/// The framework's exceptions.

#pragma once

#include "platform/kfr/kfrapi.h"

#include <exception>
#include <string>

/// Base of what the framework throws: a code and a text.
class KFR_API KFRException : public std::exception {
public:
    KFRException(int code, std::string text);
    KFRException(KFRException const&);
    KFRException& operator=(KFRException const&);
    ~KFRException() override;

    [[nodiscard]] int getCode() const noexcept { return m_code; }
    [[nodiscard]] std::string getText() const { return m_text; }

    /// "KFRException" for the derived ones as well: callers compare this text.
    [[nodiscard]] std::string getClassName() const { return "KFRException"; }

    [[nodiscard]] char const* what() const noexcept override { return m_text.c_str(); }

private:
    int m_code;
    std::string m_text;
};

/// A failure of the framework itself: a cast, a service that cannot be made.
class KFR_API KFRSystemException : public KFRException {
public:
    using KFRException::KFRException;
    ~KFRSystemException() override;
};

/// A failure that a service declares as part of its contract.
class KFR_API KFRUserException : public KFRException {
public:
    using KFRException::KFRException;
    ~KFRUserException() override;
};
