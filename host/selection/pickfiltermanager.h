/// \file
/// What a user may pick.

#pragma once

#include "platform/appfw/selection.h"
#include "platform/kfr/kfrserviceobject.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vrn::orlo::host::selection {

/// The type id of a target, whatever its sign.
[[nodiscard]] constexpr unsigned int typeOfTarget(unsigned int target) noexcept
{
    // Targets are the two's complement of a signed id; unsigned arithmetic turns the sign safely.
    return static_cast<int>(target) < 0 ? 0U - target : target;
}

/// Keeps a filter per owner and applies the current one, which is the one set last.
///
/// A filter allows targets and has some of them switched on; those can be picked, and where none is
/// on, all that are allowed. On are, as far as they are allowed,
///  - where the user's own choice is stored: the active targets, and those that the stage was
///    opened with on and that are not overwritable. The signs of the allowed targets say nothing
///    then: who stores a choice hands back the signs of the choice before.
///  - else the active targets, or at the opening of a stage the negative ones of the overwritable;
///    where that gives none, the allowed targets that came negative.
///
/// Without a filter everything can be picked.
///
/// A stage is a filter with a name. The next stage takes its place, and stays until clearPickFilter
/// or yet another; setPickFilter changes the filter within the stage that stands. Any text is a
/// name.
///
/// Order      Targets as they were given, duplicates included.
/// Failure    None: whatever is given is a filter.
/// Threads    Main thread.
/// Cost       A change sorts the targets; a reference is looked up by binary search.
class PickFilterManager final : public KFRServiceObjectImpl<appfw::IPickFilterManagerInterface> {
public:
    /// The current filter, for people.
    struct State {
        int m_owner = 0;
        std::string m_stage;                  ///< Empty outside of a stage.
        std::vector<std::string> m_stages;    ///< That the owner has opened; the current one last.
        KFRSequence<unsigned int> m_allowed;  ///< Without signs.
        KFRSequence<unsigned int> m_on;       ///< Those of them that are switched on.
        bool m_multi = true;
        bool m_contiguous = false;
        bool m_isUserChoice = false;
    };

    /// Takes the owner's filter, stages and flags away; the filter set before by another owner is
    /// the current one then. An owner that has none is as it should be.
    KFRResult clearPickFilter(int owner) override;
    /// Of the current filter, negative those that are switched on; empty without a filter.
    KFRResult getPickTargets(KFRSequence<unsigned int>& targets) override;
    /// What setPickFilter made active last for the owner of the current filter, without signs,
    /// allowed or not. A stage that opens leaves it: its tool asks what had been chosen before.
    KFRResult getActiveTargets(KFRSequence<unsigned int>& targets) override;
    KFRResult setMultiSelection(int owner, bool multi) override;
    /// Kept for whoever picks by geometry; the filter itself knows no neighbours.
    KFRResult setContiguousPick(int owner, bool contiguous) override;
    KFRResult setPickFilter(int owner, KFRSequence<unsigned int> const& allowed, int userSet,
                            KFRSequence<unsigned int> const& active, bool multi,
                            int reserved) override;
    KFRResult initStagePickFilter(int owner, KFRSequence<unsigned int> const& allowed, int userSet,
                                  KFRSequence<unsigned int> const& overwritable, bool multi,
                                  std::string const& stageName) override;

    /// Goes by the reference's type id.
    [[nodiscard]] bool isPickable(CAE::EntityReference const& reference) const;
    /// The references that can be picked, in their order; where several picks are forbidden, only
    /// the first of them.
    [[nodiscard]] CAE::EntityReferenceSequence filter(
        CAE::EntityReferenceSequence const& references) const;

    /// Name of the current stage; empty outside of a stage.
    [[nodiscard]] std::string stage() const;
    /// Whether several picks are allowed.
    [[nodiscard]] bool isMulti() const;
    /// Nothing when nobody has set a filter.
    [[nodiscard]] std::optional<State> state() const;

    std::string getObjectName() override { return "vrn.orlo.host.selection:PickFilterManager"; }

private:
    using Types = std::vector<unsigned int>;  // ascending, each once

    struct Filter {
        int m_owner = 0;
        bool m_isSet = false;                 // else there are only flags
        KFRSequence<unsigned int> m_targets;  // negative where they are on
        KFRSequence<unsigned int> m_active;
        Types m_fixed;  // on since the stage opened, and not for the user to replace
        Types m_pickable;
        std::vector<std::string> m_stages;
        bool m_multi = true;
        bool m_contiguous = false;
        bool m_isUserChoice = false;

        void set(KFRSequence<unsigned int> const& allowed, Types const& on);
    };

    static Types typesOf(KFRSequence<unsigned int> const& targets, bool negativeOnly);
    std::size_t indexOf(int owner);
    Filter& makeCurrent(int owner);
    [[nodiscard]] Filter const* current() const;

    std::vector<Filter> m_filters;  // the current one last; those without a filter first
};

}  // namespace vrn::orlo::host::selection
