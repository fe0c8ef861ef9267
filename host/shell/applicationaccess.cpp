#include "host/shell/applicationaccess.h"

#include <system_error>
#include <utility>

namespace vrn::orlo::host::shell {

namespace {

namespace fs = std::filesystem;

KFRResult failure(ApplicationFailure code, std::string const& text)
{
    return KFRResult(code).addParam(text);
}

class Product final : public KFRServiceObjectImpl<appfw::IProductInterface> {
public:
    explicit Product(std::string const& name) : m_name(icu::UnicodeString::fromUTF8(name)) {}

    KFRResult getName(icu::UnicodeString& name) override
    {
        name = m_name;
        return KFR::ok;
    }

private:
    icu::UnicodeString m_name;
};

class Plugin final : public KFRServiceObjectImpl<appfw::IPluginInterface> {
public:
    Plugin(std::string name, fs::path folder) : m_name(std::move(name)), m_folder(std::move(folder))
    {
    }

    KFRResult getFolder(icu::UnicodeString& folder) override
    {
        std::error_code error;
        fs::create_directories(m_folder, error);
        if (error) {
            return failure(kFolderNotMade, "The folder " + m_folder.string() + " of the plug-in " +
                                               m_name + " cannot be made: " + error.message() +
                                               ". Give it a folder that may be written.");
        }
        folder = icu::UnicodeString::fromUTF8(m_folder.string());
        return KFR::ok;
    }

private:
    std::string m_name;
    fs::path m_folder;
};

}  // namespace

ApplicationAccess::ApplicationAccess(Options const& options,
                                     KFRSmartPointer<appfw::KFRIStateServiceInterface> states)
    : m_headless(options.m_headless),
      m_status(options.m_status),
      m_help(options.m_help),
      m_product(KFR::make<Product>(options.m_productName)),
      m_states(std::move(states))
{
    for (auto const& [name, folder] : options.m_pluginFolders) {
        m_plugins[name] = KFR::make<Plugin>(name, fs::absolute(folder).lexically_normal());
    }
}

KFRResult ApplicationAccess::getPlugin(std::string const& name,
                                       KFRSmartPointer<appfw::IPluginInterface>& plugin)
{
    auto const known = m_plugins.find(name);
    if (known == m_plugins.end()) {
        return failure(kNoSuchPlugin, "The application has no plug-in " + name + ".");
    }
    plugin = known->second;
    return KFR::ok;
}

KFRResult ApplicationAccess::getProduct(KFRSmartPointer<appfw::IProductInterface>& product)
{
    product = m_product;
    return KFR::ok;
}

KFRResult ApplicationAccess::showStatusMessage(icu::UnicodeString const& text,
                                               appfw::Severity severity)
{
    tell(m_status, severity, text);
    return KFR::ok;
}

KFRResult ApplicationAccess::getStateService(
    KFRSmartPointer<appfw::KFRIStateServiceInterface>& service)
{
    if (m_states == KFR::NULLSP) {
        return failure(kNoStateService, "The application keeps no states.");
    }
    service = m_states;
    return KFR::ok;
}

KFRResult ApplicationAccess::show(std::string const& key, KFRSequence<KFRAny> const& params, bool)
{
    if (!m_help) {
        return failure(kNoHelp, "There is nothing here to show the help page " + key + ".");
    }
    m_help(key, params);
    return KFR::ok;
}

}  // namespace vrn::orlo::host::shell
