#include "plugins/modelingplugin/utilities/componentframe/utilitiesbase.h"

#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"

#include <array>

namespace vrn::orlo::plugin::modeling::generated {

using KFR::Framework::KFRIServiceInfoInterface;
using KFR::Framework::Scripting::KFRITypeProviderInterface;

namespace {

template <class I>
void* viewOf(UtilitiesBase* object) noexcept
{
    return static_cast<I*>(object);
}

struct ViewRow {
    KFRUUID m_id;
    void* (*m_view)(UtilitiesBase*) noexcept;
};

// clang-format off
constexpr std::array kViews{
    ViewRow{KFRIUtilitiesServiceAccess::kfrInterfaceId(),     &viewOf<KFRIUtilitiesServiceAccess>},
    ViewRow{KFRITypeProviderInterface::kfrInterfaceId(),      &viewOf<KFRITypeProviderInterface>},
    ViewRow{KFRIServiceInfoInterface::kfrInterfaceId(),       &viewOf<KFRIServiceInfoInterface>},
    ViewRow{KFRIModelingUtilitiesInterface::kfrInterfaceId(), &viewOf<KFRIModelingUtilitiesInterface>},
};
// clang-format on

KFRResult fill(std::string_view key, std::string& value)
{
    value = componentinfo::value(key);
    return KFR::ok;
}

}  // namespace

UtilitiesBase::UtilitiesBase(KFRIFactoryAccess& access)
    : UtilitiesCommon(access), m_serviceAccess(this)
{
}

void UtilitiesBase::addReference()
{
    UtilitiesCommon::addReference();
}

void UtilitiesBase::releaseReference(void** holder)
{
    UtilitiesCommon::releaseReference(holder);
}

int UtilitiesBase::getInterface(KFRUUID const& id, void** object)
{
    for (ViewRow const& row : kViews) {
        if (row.m_id == id) {
            *object = row.m_view(this);
            addReference();
            return KFR::kInterfaceFound;
        }
    }
    return UtilitiesCommon::getInterface(id, object);
}

std::string UtilitiesBase::getObjectName()
{
    return UtilitiesCommon::getObjectName();
}

long long UtilitiesBase::getInstanceID()
{
    return UtilitiesCommon::getInstanceID();
}

KFRResult UtilitiesBase::getTypes(KFRSequence<KFRTypeCode>& types)
{
    types = {KFRIUtilitiesServiceAccess::kfrTypeCode(), KFRIServiceInterface::kfrTypeCode(),
             KFRIModelingUtilitiesInterface::kfrTypeCode()};
    return KFR::ok;
}

KFRResult UtilitiesBase::getInfo(std::string const& key, std::string& value)
{
    return fill(key, value);
}

KFRResult UtilitiesBase::getMajorVersion(std::string& value)
{
    return fill("MajorVersion", value);
}

KFRResult UtilitiesBase::getMinorVersion(std::string& value)
{
    return fill("MinorVersion", value);
}

KFRResult UtilitiesBase::getBuildNumber(std::string& value)
{
    return fill("BuildNumber", value);
}

KFRResult UtilitiesBase::getKernelMajorVersion(std::string& value)
{
    return fill("KernelMajorVersion", value);
}

KFRResult UtilitiesBase::getKernelMinorVersion(std::string& value)
{
    return fill("KernelMinorVersion", value);
}

KFRResult UtilitiesBase::getBuildDate(std::string& value)
{
    return fill("BuildDate", value);
}

KFRResult UtilitiesBase::getBuildTime(std::string& value)
{
    return fill("BuildTime", value);
}

KFRResult UtilitiesBase::getPlatform(std::string& value)
{
    return fill("Platform", value);
}

KFRResult UtilitiesBase::getName(std::string& value)
{
    return fill("Name", value);
}

}  // namespace vrn::orlo::plugin::modeling::generated
