#include "platform/kfr/kfrexception.h"

#include <utility>

KFRException::KFRException(int code, std::string text) : m_code(code), m_text(std::move(text))
{
}
KFRException::KFRException(KFRException const&) = default;
KFRException& KFRException::operator=(KFRException const&) = default;

// The destructors stand here, so that each class has one type record in the process.
KFRException::~KFRException() = default;
KFRSystemException::~KFRSystemException() = default;
KFRUserException::~KFRUserException() = default;
