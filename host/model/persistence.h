/// \file
/// The open models, as the persistence framework shows them.

#pragma once

#include "host/model/modelobject.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrserviceobject.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// The object that stands for a model as a whole, and owns in references what is in no part.
///
/// Properties: "name", a text.
///
/// Ownership  Holds nothing of the model: it asks what the model has given it to ask.
class ModelRoot final : public ModelObjectOf<CAE::IModelInterface, KFR::EOM::IEOMModelInterface> {
public:
    /// What a model answers about itself.
    struct Answers {
        /// Null for a reference that leads to nothing.
        std::function<EntityService::Entity(CAE::EntityReference const&)> m_entity;
        /// Over all parts; 0 where none has nodes.
        std::function<unsigned long long()> m_highestNodeId;
    };

    /// \param persistentName, typeId, service  as for ModelObjectOf
    ModelRoot(std::string const& name, std::string persistentName, unsigned int typeId,
              std::shared_ptr<EntityService> service);

    /// \param answers  empty when the model goes: what is asked then fails
    void answerWith(Answers answers) { m_answers = std::move(answers); }

    KFRResult getNextAvaialbleNodeID(unsigned long long& id) override;
    KFRResult resolveEntity(CAE::EntityReference const& reference,
                            KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object) override;
    /// Fails: no part is set apart for optimisation.
    KFRResult getDesignPart(KFRSmartPointer<CAE::IPartInterface>& part) override;

private:
    Answers m_answers;
};

/// The models that are open. A model that has gone, or has been closed, is open no more.
///
/// Order      The current model is the one that was opened last.
/// Ownership  Holds no model.
/// Threads    Main thread.
class PersistenceSession final : public KFRServiceObjectImpl<CAE::IPersistenceSessionInterface> {
public:
    void open(ModelRoot& model);

    KFRResult getCurrentModel(KFRSmartPointer<CAE::IModelInterface>& model) override;
    /// The one opened last of several with the name, which is that of the property "name".
    KFRResult modelByName(std::string const& name, KFRSmartPointer<CAE::IModelInterface>& model);

    std::string getObjectName() override { return "vrn.orlo.host.model:PersistenceSession"; }

private:
    /// The last opened first.
    [[nodiscard]] std::vector<KFRIService> openModels() const;

    std::vector<KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface>> m_models;
};

/// Entry to the persistence framework, with one session.
class Persistence final : public KFRServiceObjectImpl<CAE::IPFWInterface> {
public:
    [[nodiscard]] PersistenceSession& session() noexcept { return *m_session; }

    KFRResult getSession(KFRSmartPointer<CAE::IPersistenceSessionInterface>& session) override;
    KFRResult getModelByName(icu::UnicodeString const& name,
                             KFRSmartPointer<CAE::IModelInterface>& model) override;

    std::string getObjectName() override { return "vrn.orlo.host.model:Persistence"; }

private:
    KFRSmartPointer<PersistenceSession> m_session = KFR::make<PersistenceSession>();
};

}  // namespace vrn::orlo::host::model
