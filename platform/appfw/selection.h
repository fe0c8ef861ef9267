/// \file
/// Selection and pick filters of the application frame.

#pragma once

#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace vrn::orlo::appfw {

/// Says what a user may pick.
///
/// Targets are type ids with a sign, kept in unsigned words: one whose two's complement is negative
/// is switched on. The first argument names the caller, whose filter it is.
class IPickFilterManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IPickFilterManager")

    virtual KFRResult clearPickFilter(int owner) = 0;
    /// All targets. The sequence is filled anew.
    virtual KFRResult getPickTargets(KFRSequence<unsigned int>& targets) = 0;
    /// The targets that the user has in force. The sequence is filled anew.
    virtual KFRResult getActiveTargets(KFRSequence<unsigned int>& targets) = 0;
    virtual KFRResult setMultiSelection(int owner, bool multi) = 0;
    /// Whether a pick goes on over contiguous entities.
    virtual KFRResult setContiguousPick(int owner, bool contiguous) = 0;
    /// \param allowed   what can be picked
    /// \param userSet   1 when the user's own choice is stored
    /// \param active    what of it is switched on; empty for all
    /// \param reserved  0
    virtual KFRResult setPickFilter(int owner, KFRSequence<unsigned int> const& allowed,
                                    int userSet, KFRSequence<unsigned int> const& active,
                                    bool multi, int reserved) = 0;
    /// The same, and opens a stage.
    /// \param overwritable  what the user may replace
    virtual KFRResult initStagePickFilter(int owner, KFRSequence<unsigned int> const& allowed,
                                          int userSet,
                                          KFRSequence<unsigned int> const& overwritable, bool multi,
                                          std::string const& stageName) = 0;
};

class ISelectionManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.ISelectionManager")

    virtual KFRResult getPickFilterManager(
        KFRSmartPointer<IPickFilterManagerInterface>& manager) = 0;
};

}  // namespace vrn::orlo::appfw
