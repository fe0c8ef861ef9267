/// \file
/// A condition that a user can understand, thrown inside the library.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::plugin::modeling {

/// Thrown by value and caught at the top of a command, which turns it into a result or a message.
/// It is no std::exception, so that a handler for those does not swallow it.
class MODELING_API UserException {
public:
    UserException() = default;
    /// \param id  of the message
    UserException(int id);  // NOLINT: thrown as `throw UserException(id)`, caught by type
    UserException(int code, int id);
    UserException(std::string const& text);  // NOLINT

    /// With a code: that code and the message id. With an id alone: the id for both. With neither:
    /// KFR::notDone, with the text as its parameter.
    [[nodiscard]] KFRResult getKFRResult() const;

    [[nodiscard]] std::string getTextStr() const;
    /// The localised text of the id if there is an id, else the text. Empty for an id that the
    /// message catalogue does not have.
    [[nodiscard]] icu::UnicodeString getTextUStr() const;

private:
    int m_code = 0;
    int m_id = 0;
    std::string m_text;
};

}  // namespace vrn::orlo::plugin::modeling
