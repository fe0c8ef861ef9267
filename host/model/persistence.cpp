#include "host/model/persistence.h"

#include <utility>

namespace vrn::orlo::host::model {

ModelRoot::ModelRoot(std::string const& name, std::string persistentName, unsigned int typeId,
                     std::shared_ptr<EntityService> service)
    : ModelObjectOf(std::move(persistentName), KFR::NULLSP, typeId, 1, std::move(service))
{
    declareProperty(kNameProperty, KFRAny(icu::UnicodeString::fromUTF8(name)));
}

KFRResult ModelRoot::getDesignPart(KFRSmartPointer<CAE::IPartInterface>&)
{
    return KFR::notDone;
}

KFRResult ModelRoot::getNextAvaialbleNodeID(unsigned long long& id)
{
    if (!m_answers.m_highestNodeId) {
        return KFR::notDone;
    }
    id = m_answers.m_highestNodeId() + 1;
    return KFR::ok;
}

KFRResult ModelRoot::resolveEntity(CAE::EntityReference const& reference,
                                   KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object)
{
    if (!m_answers.m_entity) {
        return KFR::notDone;
    }
    auto const found =
        KFR::loose_cast<KFR::EOM::IEOMObjectInterface>(m_answers.m_entity(reference));
    if (found == KFR::NULLSP || model::isDeleted(found)) {
        return KFR::notDone;
    }
    object = found;
    return KFR::ok;
}

void PersistenceSession::open(ModelRoot& model)
{
    std::erase_if(m_models, [](auto const& known) { return known->lock() == KFR::NULLSP; });
    m_models.push_back(model.weakReference());
}

KFRResult PersistenceSession::getCurrentModel(KFRSmartPointer<CAE::IModelInterface>& model)
{
    std::vector<KFRIService> const models = openModels();
    if (models.empty()) {
        return KFR::notDone;
    }
    model = models.front();
    return KFR::ok;
}

KFRResult PersistenceSession::modelByName(std::string const& name,
                                          KFRSmartPointer<CAE::IModelInterface>& model)
{
    for (KFRIService const& candidate : openModels()) {
        if (nameOf(*KFR::strict_cast<appfw::IEntityInterface>(candidate)) == name) {
            model = candidate;
            return KFR::ok;
        }
    }
    return KFR::notDone;
}

std::vector<KFRIService> PersistenceSession::openModels() const
{
    std::vector<KFRIService> models;
    for (auto known = m_models.rbegin(); known != m_models.rend(); ++known) {
        if (KFRIService model = (*known)->lock(); model != KFR::NULLSP && !isDeleted(model)) {
            models.push_back(std::move(model));
        }
    }
    return models;
}

KFRResult Persistence::getSession(KFRSmartPointer<CAE::IPersistenceSessionInterface>& session)
{
    session = m_session;
    return KFR::ok;
}

KFRResult Persistence::getModelByName(icu::UnicodeString const& name,
                                      KFRSmartPointer<CAE::IModelInterface>& model)
{
    std::string utf8;
    return m_session->modelByName(name.toUTF8String(utf8), model);
}

}  // namespace vrn::orlo::host::model
