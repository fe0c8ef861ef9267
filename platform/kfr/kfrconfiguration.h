/// \file
/// Named configurations: groups of typed settings, read from XML files.

#pragma once

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

namespace KFR::Framework {

/// One configuration.
///
/// Failure    A read that fails leaves its out-argument as it was.
class KFRIConfigurationInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIConfiguration")

    /// Loads a file into the configuration.
    /// \param section  the part of the file to take; empty for all
    /// \param mode, reserved, timeout  the framework's; callers pass what they always have
    virtual KFRResult load(icu::UnicodeString const& file, icu::UnicodeString const& section,
                           int mode, int reserved, int timeout) = 0;
    virtual KFRResult readBool(icu::UnicodeString const& key, bool& value) = 0;
    virtual KFRResult readInt(icu::UnicodeString const& key, long long& value) = 0;
    virtual KFRResult readDouble(icu::UnicodeString const& key, double& value) = 0;
    /// \param index  which text of a key with several, from 0
    virtual KFRResult readString(icu::UnicodeString const& key, int index,
                                 icu::UnicodeString& value) = 0;
    virtual KFRResult readFloatValue(icu::UnicodeString const& key,
                                     KFR::Util::Units::FloatValue& value) = 0;
};

/// Keeps the configurations by name.
class KFRIConfigurationManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIConfigurationManager")

    /// The configuration or group of that name.
    virtual KFRResult getConfiguration(
        icu::UnicodeString const& name,
        KFRSmartPointer<KFRIConfigurationInterface>& configuration) = 0;
};

}  // namespace KFR::Framework

using KFR::Framework::KFRIConfigurationInterface;
using KFR::Framework::KFRIConfigurationManagerInterface;
