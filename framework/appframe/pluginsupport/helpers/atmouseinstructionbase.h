/// \file
/// What an at-mouse instruction of any plug-in consists of.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::appfw {

/// Keeps the instruction that is beside the mouse cursor.
///
/// Threads    Main thread.
class MODELING_API AtMouseInstructionBase {
public:
    struct Instruction {
        icu::UnicodeString m_text;
        icu::UnicodeString m_secondText;  ///< Of the second row; empty for a single one.
        std::string m_icon;
        bool m_isError = false;
    };

    /// The instruction that was sent last; empty after it was cleared.
    [[nodiscard]] Instruction const& current() const noexcept { return m_current; }

protected:
    AtMouseInstructionBase() = default;
    ~AtMouseInstructionBase() = default;

    Instruction m_current;
};

}  // namespace vrn::orlo::appfw
