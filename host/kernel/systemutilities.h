/// \file
/// Files, environment and paths of this system.

#pragma once

#include "platform/kfr/kfrserviceobject.h"
#include "platform/sysutils/sysutils.h"

namespace vrn::orlo::host::kernel {

/// The three utilities of the operating system in one object. Paths may be written with '\\' or
/// '/'; a file with '\\' in its name is out of reach.
///
/// Failure    Results have the system's error number as their code.
/// Threads    Any thread, as far as nobody changes the environment meanwhile.
class SystemUtilities final
    : public KFRServiceObjectImpl<KFR::Util::SystemUtils::KFRIFileUtilsInterface,
                                  KFR::Util::SystemUtils::KFRIOSUtilsInterface,
                                  KFR::Util::SystemUtils::KFRIPathUtilsInterface> {
public:
    /// Follows links: one that leads nowhere names nothing.
    KFRResult exists(icu::UnicodeString const& path) override;
    /// Files and links only; a folder is refused, also an empty one.
    KFRResult remove(icu::UnicodeString const& path) override;

    /// A variable that is set to nothing is set.
    KFRResult getEnvironmentVariable(icu::UnicodeString const& name, std::string& value) override;

    icu::UnicodeString toNative(icu::UnicodeString const& path) override;
    icu::UnicodeString join(icu::UnicodeString const& folder,
                            icu::UnicodeString const& path) override;
};

}  // namespace vrn::orlo::host::kernel
