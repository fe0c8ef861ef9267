/// \file
/// The texts of messages and names, in the language of the run.

#pragma once

#include "platform/appfw/messages.h"
#include "platform/kfr/kfrserviceobject.h"

#include <unicode/ures.h>

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vrn::orlo::host::shell {

/// Codes of what the catalogue cannot give; each comes with a text as its first parameter.
enum MessageFailure : int {
    kNoText = 1,         ///< Nor a help key.
    kUnknownPlugin = 2,  ///< Plug-ins have domains, whether or not they are loaded.
    kUnusableText = 3,   ///< The text's own braces are wrong.
};

/// Texts out of the bundles that are compiled from host/resources/messages.
///
/// What a language lacks comes from the language above it, in the end from root, which is English.
/// The numbers of all plug-ins are one set, so a number needs no domain. Parameters are put in as
/// they are: integers without separators, real numbers as KFR::numberText writes them, texts. A
/// parameter of any other kind shows as "?", and one that is not given leaves its "{1}" standing.
///
/// Failure    As MessageFailure says, with the output as it was. For a missing text one warning per
///            id goes to the framework's log and tells where to add it.
/// Threads    Main thread.
/// Cost       Nothing is kept: each request searches the bundles, which stay mapped.
class MessageCatalog final : public KFRServiceObjectImpl<appfw::KFRIMessageCatalogInterface> {
public:
    /// Failure    std::runtime_error for a folder without root.res.
    /// \param folder  of the compiled bundles
    /// \param locale  "de_DE", "de_DE.UTF-8", "de"; English for "", "C", "POSIX" and every language
    ///                without a bundle
    MessageCatalog(std::filesystem::path const& folder, std::string const& locale);

    /// The locale of messages as POSIX finds it: the first of LC_ALL, LC_MESSAGES and LANG that is
    /// set to anything; empty when none is.
    [[nodiscard]] static std::string localeFromEnvironment();

    KFRResult getTextByNumber(int id, KFRSequence<KFRAny> const& params,
                              icu::UnicodeString& text) override;
    /// An id of digits alone is the number of a message.
    KFRResult getTextById(std::string const& id, KFRSequence<KFRAny> const& params,
                          icu::UnicodeString& text) override;
    /// No key is nothing to warn of.
    KFRResult getHelpKey(std::string const& number, std::string& key) override;
    KFRResult getDomain(std::string const& pluginName, int& domain) override;

    std::string getObjectName() override { return "vrn.orlo.host.shell:MessageCatalog"; }

protected:
    ~MessageCatalog() override = default;

private:
    [[nodiscard]] std::optional<icu::UnicodeString> find(char const* table,
                                                         std::string const& key) const;
    KFRResult getText(char const* table, std::string const& key, KFRSequence<KFRAny> const& params,
                      icu::UnicodeString& text);
    KFRResult missing(char const* table, std::string const& key);

    std::vector<icu::LocalUResourceBundlePointer> m_bundles;  // the closest to the locale first
    std::set<std::string> m_missed;
};

}  // namespace vrn::orlo::host::shell
