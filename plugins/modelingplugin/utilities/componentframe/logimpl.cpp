#include "plugins/modelingplugin/utilities/componentframe/logimpl.h"

#include "platform/appfw/frameworkaccess.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <ctime>

namespace vrn::orlo::plugin::modeling {

LogImpl::~LogImpl() = default;

LogFileImpl::LogFileImpl()
{
    auto const framework =
        KFR::strict_cast<appfw::IFrameworkAccessInterface>(ServiceHelper::getFrameworkAccess());
    if (framework == KFR::NULLSP) {
        return;
    }
    KFRSmartPointer<appfw::IPluginInterface> plugin;
    static_cast<void>(framework->getPlugin("VRN.ModelingPlugin", plugin));
    if (plugin == KFR::NULLSP) {
        return;
    }
    icu::UnicodeString folder;
    static_cast<void>(plugin->getFolder(folder));
    std::string path;
    folder.toUTF8String(path);
    path.append("/").append(std::to_string(std::time(nullptr))).append(".log");
    m_file.reset(std::fopen(path.c_str(), "wb"));
}

LogFileImpl::~LogFileImpl() = default;

void LogFileImpl::write(std::string const& line, int /*level*/)
{
    if (m_file != nullptr) {
        std::fwrite(line.data(), 1, line.size(), m_file.get());
        std::fwrite("\r\n", 1, 2, m_file.get());
        std::fflush(m_file.get());
    }
}

KFRSmartPointer<KFR::Framework::KFRILoggerInterface> frameworkLogger()
{
    static KFR::Framework::RecursiveMutex mutex;
    static KFRSmartPointer<KFR::Framework::KFRILoggerInterface> logger;
    KFR::Framework::RecursiveLock const lock(mutex);
    if (logger == KFR::NULLSP) {
        if (auto const kernel = KFR::Framework::getKernelAccessInterface(); kernel != KFR::NULLSP) {
            logger = kernel->getLogger();
        }
    }
    return logger;
}

KFRLogImpl::KFRLogImpl() : m_logger(frameworkLogger())
{
}

void KFRLogImpl::write(std::string const& line, int level)
{
    if (m_logger != KFR::NULLSP) {
        static_cast<void>(m_logger->log(line, level));
    }
}

}  // namespace vrn::orlo::plugin::modeling
