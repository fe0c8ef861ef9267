/// \file
/// The library's texts in the user's language.

#pragma once

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <memory>
#include <string>

namespace vrn::orlo::appfw {
class MessageHelper;
}

namespace vrn::orlo::plugin::modeling {

/// Holds the way to the message catalogue.
///
/// Failure    Before initialize() and for an unknown id: the empty text.
/// Threads    Main thread.
class MODELING_API LocalizationHelper {
public:
    static LocalizationHelper* instance();
    LocalizationHelper(LocalizationHelper const&) = delete;
    LocalizationHelper& operator=(LocalizationHelper const&) = delete;

    /// Called by the owning plug-in when it starts; later calls do nothing.
    void initialize(std::string const& pluginName,
                    KFRSmartPointer<KFRIServiceProviderInterface>& provider);
    /// Gives the catalogue and the display back. Called by the owning plug-in when it stops;
    /// initialize() works anew afterwards.
    void release();

    icu::UnicodeString getLocaleStringByIntId(int id, KFRSequence<KFRAny> const& params);
    icu::UnicodeString getLocaleStringByTextId(std::string const& id,
                                               KFRSequence<KFRAny> const& params);

    /// Null before initialize().
    [[nodiscard]] appfw::MessageHelper* getMsgHelper() const { return m_messages.get(); }

private:
    LocalizationHelper();
    ~LocalizationHelper();

    std::unique_ptr<appfw::MessageHelper> m_messages;
};

/// One localised text, named by a number or by a text id.
///
/// Failure    What the catalogue has no text for is the fallback, after a line in the log. It is
///            looked for anew every time.
/// Threads    A value.
class MODELING_API LocalStr {
public:
    explicit LocalStr(int id, std::string const& fallback = {});
    explicit LocalStr(std::string textId, std::string const& fallback = {});

    /// The text, resolved without parameters unless it has been before: what format() made stays.
    [[nodiscard]] icu::UnicodeString getUStr() const;
    /// The same in UTF-8.
    [[nodiscard]] std::string getStr() const;
    operator icu::UnicodeString() const { return getUStr(); }
    operator std::string() const { return getStr(); }

    /// Resolves with parameters.
    LocalStr& format(KFRSequence<KFRAny> const& params);
    LocalStr& format(icu::UnicodeString const& first);
    LocalStr& format(icu::UnicodeString const& first, icu::UnicodeString const& second);
    LocalStr& format(icu::UnicodeString const& first, icu::UnicodeString const& second,
                     icu::UnicodeString const& third);

    /// Asks the catalogue.
    [[nodiscard]] icu::UnicodeString loadRes(KFRSequence<KFRAny> const& params) const;

private:
    int m_id = 0;  ///< 0 when the text is named by m_textId.
    std::string m_textId;
    std::string m_default;
    mutable icu::UnicodeString m_text;  ///< Empty until it is resolved.
};

}  // namespace vrn::orlo::plugin::modeling
