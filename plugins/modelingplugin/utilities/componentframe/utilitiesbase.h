/// \file
/// Second layer of the service class: answers queries.

#pragma once

#include "platform/modeling/modelingutilities.h"
#include "plugins/modelingplugin/utilities/componentframe/utilitiescommon.h"

#include <string>

namespace vrn::orlo::plugin::modeling::generated {

/// Answers interface, type and information queries; the information comes from the one table of
/// keys.
class UtilitiesBase : public UtilitiesCommon,
                      public KFR::Framework::Scripting::KFRITypeProviderInterface,
                      public KFRIModelingUtilitiesInterface,
                      public KFR::Framework::KFRIServiceInfoInterface {
public:
    explicit UtilitiesBase(KFRIFactoryAccess& access);

    void addReference() override;
    void releaseReference(void** holder) override;
    int getInterface(KFRUUID const& id, void** object) override;
    std::string getObjectName() override;
    long long getInstanceID() override;

    KFRResult getTypes(KFRSequence<KFRTypeCode>& types) override;

    KFRResult getInfo(std::string const& key, std::string& value) override;
    KFRResult getMajorVersion(std::string& value) override;
    KFRResult getMinorVersion(std::string& value) override;
    KFRResult getBuildNumber(std::string& value) override;
    KFRResult getKernelMajorVersion(std::string& value) override;
    KFRResult getKernelMinorVersion(std::string& value) override;
    KFRResult getBuildDate(std::string& value) override;
    KFRResult getBuildTime(std::string& value) override;
    KFRResult getPlatform(std::string& value) override;
    KFRResult getName(std::string& value) override;

protected:
    ~UtilitiesBase() override = default;

    /// This object as its access interface, by which the service class reaches its own provider.
    /// Not counted.
    KFR::Framework::KFRIServiceAccess* m_serviceAccess;
};

}  // namespace vrn::orlo::plugin::modeling::generated
