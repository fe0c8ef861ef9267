/// \file
/// Configurations and the system's utilities, as a test sets them.

#pragma once

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/sysutils/sysutils.h"

#include <unicode/unistr.h>

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// Holds values by key. A read fails with 31 unless the value is of its kind.
class FakeConfiguration final : public KFRServiceObjectImpl<KFRIConfigurationInterface> {
public:
    using Text = icu::UnicodeString;
    using FloatValue = KFR::Util::Units::FloatValue;
    using Load = std::tuple<Text, Text, int, int, int>;

    std::map<Text, KFRAny> values;
    std::vector<Load> loads;
    KFRResult loadResult = KFR::ok;

    KFRResult load(Text const& file, Text const& section, int mode, int reserved,
                   int timeout) override
    {
        loads.emplace_back(file, section, mode, reserved, timeout);
        return loadResult;
    }
    KFRResult readBool(Text const& key, bool& value) override { return read(key, value); }
    KFRResult readInt(Text const& key, long long& value) override { return read(key, value); }
    KFRResult readDouble(Text const& key, double& value) override { return read(key, value); }
    KFRResult readString(Text const& key, int index, Text& value) override
    {
        return index == 0 ? read(key, value) : 31;  // each key has one text
    }
    KFRResult readFloatValue(Text const& key, FloatValue& value) override
    {
        return read(key, value);
    }

private:
    template <class Value>
    KFRResult read(Text const& key, Value& value)
    {
        auto const found = values.find(key);
        return found != values.end() && (found->second >>= value) ? KFR::ok : 31;
    }
};

/// Knows the configurations that a test puts in, and counts the questions.
class FakeSettings final : public KFRServiceObjectImpl<KFRIConfigurationManagerInterface> {
public:
    std::map<icu::UnicodeString, KFRSmartPointer<FakeConfiguration>> known;
    int asked = 0;

    KFRSmartPointer<FakeConfiguration> put(icu::UnicodeString const& name)
    {
        return known[name] = KFR::make<FakeConfiguration>();
    }
    KFRResult getConfiguration(icu::UnicodeString const& name,
                               KFRSmartPointer<KFRIConfigurationInterface>& out) override
    {
        ++asked;
        auto const found = known.find(name);
        if (found == known.end()) {
            return KFR::notDone;
        }
        out = found->second;
        return KFR::ok;
    }
};

/// Files, environment and paths in one object, as in the real application.
class FakeSystem final
    : public KFRServiceObjectImpl<KFR::Util::SystemUtils::KFRIFileUtilsInterface,
                                  KFR::Util::SystemUtils::KFRIOSUtilsInterface,
                                  KFR::Util::SystemUtils::KFRIPathUtilsInterface> {
public:
    using Text = icu::UnicodeString;

    std::map<Text, std::string> variables;
    std::set<Text> files;
    int removals = 0;
    int failingRemovals = 0;  ///< That many removals fail before one succeeds.

    KFRResult exists(Text const& path) override { return files.contains(path) ? KFR::ok : 32; }
    KFRResult remove(Text const& path) override
    {
        if (++removals > failingRemovals) {
            files.erase(path);
        }
        return files.contains(path) ? 33 : KFR::ok;
    }
    KFRResult getEnvironmentVariable(Text const& name, std::string& value) override
    {
        auto const found = variables.find(name);
        if (found == variables.end()) {
            return 34;
        }
        value = found->second;
        return KFR::ok;
    }
    Text toNative(Text const& path) override { return path; }
    Text join(Text const& folder, Text const& path) override { return folder + u'/' + path; }
};

}  // namespace vrn::orlo::plugin::modeling::test
