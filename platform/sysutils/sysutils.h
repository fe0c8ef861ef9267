/// \file
/// Utilities of the operating system: files, environment, paths.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <string>

namespace KFR::Util::SystemUtils {

/// Files. Paths may have '\\' or '/' between their parts.
class KFRIFileUtilsInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Util.SystemUtils.KFRIFileUtils")

    /// OK when the path names something that is there.
    virtual KFRResult exists(icu::UnicodeString const& path) = 0;
    /// OK when the file is gone, whether or not it was there.
    virtual KFRResult remove(icu::UnicodeString const& path) = 0;
};

/// The process's environment.
class KFRIOSUtilsInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Util.SystemUtils.KFRIOSUtils")

    /// Fails, with `value` as it was, for a variable that is not set.
    virtual KFRResult getEnvironmentVariable(icu::UnicodeString const& name,
                                             std::string& value) = 0;
};

/// Paths as texts; nothing is looked up on disk.
class KFRIPathUtilsInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Util.SystemUtils.KFRIPathUtils")

    /// The path in the form of this system: '/' between its parts.
    virtual icu::UnicodeString toNative(icu::UnicodeString const& path) = 0;
    /// `path` below `folder`; `path` alone when it is absolute.
    virtual icu::UnicodeString join(icu::UnicodeString const& folder,
                                    icu::UnicodeString const& path) = 0;
};

}  // namespace KFR::Util::SystemUtils
