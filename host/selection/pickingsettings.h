/// \file
/// How picking works in the viewport.

#pragma once

#include "platform/ddm/display3ddatamanager.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>

namespace vrn::orlo::host::selection {

/// Keeps the pick mode; several picks that replace the selection, at first.
///
/// Failure    None. A mode beyond the named ones is kept as well and picks as `replace` does: there
///            are callers that hand such numbers through.
/// Threads    Main thread.
class PickingSettings final : public KFRServiceObjectImpl<ddm::KFRIPickingSettingAdapter> {
public:
    KFRResult setPickMode(bool multi, ddm::SelectionChangeMode mode) override
    {
        m_isMulti = multi;
        m_mode = mode;
        return KFR::ok;
    }

    [[nodiscard]] bool isMulti() const noexcept { return m_isMulti; }
    [[nodiscard]] ddm::SelectionChangeMode mode() const noexcept { return m_mode; }

    std::string getObjectName() override { return "vrn.orlo.host.selection:PickingSettings"; }

private:
    bool m_isMulti = true;
    ddm::SelectionChangeMode m_mode = ddm::SelectionChangeMode::replace;
};

}  // namespace vrn::orlo::host::selection
