/// \file
/// The base of everything that a model consists of.

#pragma once

#include "host/model/entityobject.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfruuid.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::model {

/// The identity that a persistent name stands for: the same in every run.
[[nodiscard]] constexpr CAE::GUIDDATA identityOf(std::string_view persistentName) noexcept
{
    KFRUUID const id = KFRUUID::ofName(persistentName);
    return {id.high, id.low};
}

/// What the host asks of any object of a model, whatever its kind.
class ModelObjectInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.host.model.IModelObject")

    [[nodiscard]] virtual std::string const& persistentName() const noexcept = 0;

    /// Whether the object has been taken out of the model.
    [[nodiscard]] virtual bool isDeleted() const noexcept = 0;
    virtual void setDeleted(bool deleted) noexcept = 0;

    /// \param parent  null for none; not held
    virtual void attach(CAE::IPersistentObjectInterface* parent) noexcept = 0;
    virtual void detach() noexcept = 0;

    /// Marks that others leave on the object: text by key.
    [[nodiscard]] virtual std::map<std::string, std::string>& tags() noexcept = 0;
};

/// Whether the object behind a handle has been taken out of its model. False for null, and for what
/// is no object of a model.
template <class Handle>
[[nodiscard]] bool isDeleted(Handle const& handle)
{
    auto const object = KFR::loose_cast<ModelObjectInterface>(handle);
    return object != KFR::NULLSP && object->isDeleted();
}

/// One thing of a model in its three views: persistent object, object of the object model, entity.
/// Derived classes add the interfaces of their kind.
///
/// Objects are made by their owner, which holds them; an object knows its parent by a plain pointer
/// that the owner clears with detach() before the parent goes.
///
/// Failure    As EntityFailure says. A deleted object still answers who it was, and refuses
///            everything that would change it.
/// Threads    Main thread.
/// \tparam Further  interfaces of the kind
template <class... Further>
class ModelObjectOf
    : public EntityObjectOf<CAE::IPersistentObjectInterface, KFR::EOM::IEOMObjectInterface,
                            ModelObjectInterface, Further...> {
    using Base = EntityObjectOf<CAE::IPersistentObjectInterface, KFR::EOM::IEOMObjectInterface,
                                ModelObjectInterface, Further...>;

public:
    /// \param persistentName  the same for the same thing of the same file, in every run
    /// \param owner           the object through which references reach this one; null for an
    ///                        object that is its own owner
    /// \param typeId, number  of its reference
    ModelObjectOf(std::string persistentName, KFRIService owner, unsigned int typeId,
                  unsigned int number, std::shared_ptr<EntityService> service)
        : Base(std::move(owner), typeId, number, std::move(service)),
          m_persistentName(std::move(persistentName)),
          m_guid(identityOf(m_persistentName))
    {
    }

    /// An object that is its own owner is its own service.
    CAE::EntityReference getEntityReference() override
    {
        CAE::EntityReference reference = Base::getEntityReference();
        if (reference.service == KFR::NULLSP) {
            reference.service =
                KFRIService(this->kfrRoot(), CAE::IPersistentObjectInterface::kfrTypeCode());
        }
        return reference;
    }
    KFRResult setProperty(std::string const& name, KFRAny const& value) override
    {
        if (m_isDeleted) {
            return KFRResult(kDeleted).addParam(this->getObjectName() + " is deleted.");
        }
        return Base::setProperty(name, value);
    }

    // The persistent view.

    KFRResult getIdentifier(CAE::GUIDDATA& identifier) override
    {
        identifier = getGuid();
        return KFR::ok;
    }
    KFRResult getParent(KFRSmartPointer<CAE::IPersistentObjectInterface>& parent) override
    {
        if (m_parent == nullptr) {
            return kNoParent;
        }
        parent = KFRSmartPointer<CAE::IPersistentObjectInterface>(m_parent);
        return KFR::ok;
    }
    KFRResult getParent(KFRSmartPointer<appfw::IEntityInterface>& parent) override
    {
        KFRSmartPointer<CAE::IPersistentObjectInterface> object;
        KFRResult const found = getParent(object);
        if (found.isOk()) {
            parent = KFR::loose_cast<appfw::IEntityInterface>(object);
        }
        return found;
    }

    KFRResult isDeleted(bool& deleted) override
    {
        deleted = m_isDeleted;
        return KFR::ok;
    }

    // The object model's view.

    CAE::GUIDDATA getGuid() override { return m_guid; }
    bool isSameObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface> const& other) override
    {
        return other != KFR::NULLSP && other->getGuid() == getGuid();
    }
    KFRResult getPersistentObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override
    {
        object = KFRSmartPointer<CAE::IPersistentObjectInterface>(this);
        return KFR::ok;
    }

    // The host's view.

    [[nodiscard]] std::string const& persistentName() const noexcept final
    {
        return m_persistentName;
    }
    [[nodiscard]] bool isDeleted() const noexcept final { return m_isDeleted; }
    void setDeleted(bool deleted) noexcept final { m_isDeleted = deleted; }
    void attach(CAE::IPersistentObjectInterface* parent) noexcept final { m_parent = parent; }
    void detach() noexcept final { m_parent = nullptr; }
    [[nodiscard]] std::map<std::string, std::string>& tags() noexcept final { return m_tags; }

private:
    std::string m_persistentName;
    CAE::GUIDDATA m_guid;
    CAE::IPersistentObjectInterface* m_parent = nullptr;
    bool m_isDeleted = false;
    std::map<std::string, std::string> m_tags;
};

}  // namespace vrn::orlo::host::model
