/// \file
/// What words, shows and notes messages, as a test sets it, and the library's way there.

#pragma once

#include "platform/appfw/messages.h"
#include "platform/appfw/units.h"
#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceobject.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "tests/support/platformscope.h"

#include <unicode/unistr.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// Texts by number and by id, each with its text parameters behind it in "<>". The plug-in "Tested"
/// has the domain 77. Every operation answers with a failure: nobody is to read it.
class FakeCatalog final : public KFRServiceObjectImpl<appfw::KFRIMessageCatalogInterface> {
public:
    using Text = icu::UnicodeString;
    using Params = KFRSequence<KFRAny>;

    std::map<int, Text> numbers;
    std::map<std::string, Text> ids;
    std::map<std::string, std::string> helpKeys;

    KFRResult getTextByNumber(int id, Params const& params, Text& text) override
    {
        return word(numbers[id], params, text);
    }
    KFRResult getTextById(std::string const& id, Params const& params, Text& text) override
    {
        return word(ids[id], params, text);
    }
    KFRResult getHelpKey(std::string const& number, std::string& key) override
    {
        key = helpKeys[number];
        return KFR::notDone;
    }
    KFRResult getDomain(std::string const& pluginName, int& domain) override
    {
        domain = pluginName == "Tested" ? 77 : domain;
        return KFR::notDone;
    }

private:
    static KFRResult word(Text const& found, Params const& params, Text& text)
    {
        text = found;
        for (KFRAny const& param : params) {
            if (auto const* const value = param.get<Text>()) {
                text += u"<" + *value + u">";
            }
        }
        return KFR::notDone;
    }
};

class FakeDisplay final : public KFRServiceObjectImpl<appfw::KFRIMessageDisplayInterface> {
public:
    struct Shown {
        KFRResult message;
        appfw::Severity severity;
        bool flag;
    };

    std::vector<Shown> shown;

    KFRResult show(KFRResult const& message, appfw::Severity severity, bool flag) override
    {
        shown.push_back({message, severity, flag});
        return KFR::notDone;
    }
};

/// Words a value by its whole number; for the flag 1 alone.
class WordingUnits final : public KFRServiceObjectImpl<appfw::IUnitsInterface> {
public:
    using Number = unsigned short;

    KFRResult getCurrentUnit(Number, Number&) override { return KFR::notDone; }
    KFRResult getQuantity(Number, Number&) override { return KFR::notDone; }
    KFRResult convert(double, Number, Number, double&) override { return KFR::notDone; }
    KFRResult format(KFR::Util::Units::FloatValue const& value, icu::UnicodeString& out,
                     int flag) override
    {
        std::string const text = flag == 1 ? std::to_string(static_cast<int>(value.m_value)) : "?";
        out = icu::UnicodeString::fromUTF8(text);
        return KFR::notDone;
    }
};

/// The kernel, which is its own logger.
class FakeKernel final : public KFRServiceObjectImpl<KFR::Framework::KFRIKernelAccessInterface,
                                                     KFR::Framework::KFRILoggerInterface> {
public:
    std::vector<std::pair<std::string, int>> lines;

    KFRSmartPointer<KFR::Framework::KFRILoggerInterface> getLogger() override
    {
        return KFRSmartPointer<KFR::Framework::KFRILoggerInterface>(this);
    }
    KFRResult log(std::string const& text, int level) override
    {
        lines.emplace_back(text, level);
        return KFR::notDone;
    }
};

/// A platform with catalogue and display, for the plug-in "Tested".
struct MessageScope {
    PlatformScope platform;
    KFRSmartPointer<FakeCatalog> catalog = KFR::make<FakeCatalog>();
    KFRSmartPointer<FakeDisplay> display = KFR::make<FakeDisplay>();

    MessageScope()
    {
        platform.services().put("vrn.orlo.appfw.MessageCatalog", catalog);
        platform.services().put("vrn.orlo.appfw.MessageDisplay", display);
        KFRSmartPointer<KFRIServiceProviderInterface> provider(&platform.services());
        LocalizationHelper::instance()->initialize("Tested", provider);
    }
    ~MessageScope() { LocalizationHelper::instance()->release(); }
};

}  // namespace vrn::orlo::plugin::modeling::test
