/// \file
/// The base of the host's entities.

#pragma once

#include "host/model/entityname.h"
#include "host/model/entityservice.h"
#include "host/model/propertytable.h"
#include "platform/appfw/entity.h"
#include "platform/baseplugin/baseentity.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// The notification that publishes a refresh. Spelt so deliberately: it is what clients send.
inline constexpr char const* kRefreshNotification = "EntityRefersh";

/// An entity with typed properties. Every change is told to the entity service; its coming and
/// going are told by whoever makes it known, such as the root manager.
///
/// Failure    As EntityFailure says, with a text that names entity, property and what was wanted;
///            nothing is changed then. Setting a value that the property has is OK and changes
///            nothing.
/// Ownership  Holds its owner and the entity service.
/// Threads    Main thread.
/// \tparam Further  interfaces that the derived class adds
template <class... Further>
class EntityObjectOf
    : public KFRServiceObjectImpl<appfw::IEntityInterface, appfw::IEntityNotificationInterface,
                                  plugin::baseplugin::IBaseEntityInterface, Further...> {
public:
    /// \param owner    the object through which the entity is reached; null for none
    /// \param typeId   of the type registry
    /// \param number   number within the owner
    /// \param service  null for an entity whose changes are not told
    EntityObjectOf(KFRIService owner, unsigned int typeId, unsigned int number,
                   std::shared_ptr<EntityService> service)
        : m_reference{std::move(owner), typeId, number, 0}, m_service(std::move(service))
    {
    }

    /// To be called before the entity is handed out; fails as PropertyTable::declare.
    void declareProperty(std::string name, KFRAny start, PropertyTable::Check check = {})
    {
        m_properties.declare(std::move(name), std::move(start), std::move(check));
    }

    /// In the order of declaration.
    [[nodiscard]] std::vector<std::string> propertyNames() const { return m_properties.names(); }

    CAE::EntityReference getEntityReference() override { return m_reference; }

    KFRResult setProperty(std::string const& name, KFRAny const& value) override
    {
        if (KFRResult const answer = m_properties.check(label(), name, value); !answer.isOk()) {
            return answer;
        }
        if (isSameValue(*m_properties.find(name), value)) {
            return KFR::ok;
        }
        KFRAny const before = m_properties.replace(name, value);
        if (m_service != nullptr) {
            m_service->modified(handle(), name, before);
        }
        return KFR::ok;
    }

    KFRResult getProperty(std::string const& name, KFRAny& value) override
    {
        KFRAny const* const held = m_properties.find(name);
        if (held == nullptr) {
            return m_properties.unknown(label(), name);
        }
        value = *held;
        return KFR::ok;
    }

    /// Knows kRefreshNotification, whose arguments it does not read.
    KFRResult notify(std::string const& name, KFRAny const&) override
    {
        if (name != kRefreshNotification) {
            return KFRResult(kUnknownNotification)
                .addParam("Entity " + label() + " does not know the notification \"" + name +
                          "\"; it knows \"" + kRefreshNotification + "\".");
        }
        if (m_service != nullptr) {
            m_service->refresh(handle());
        }
        return KFR::ok;
    }

    KFRResult getName(icu::UnicodeString& name) override
    {
        KFRAny const* const held = m_properties.find(kNameProperty);
        std::optional<std::string> const text = held != nullptr ? nameIn(*held) : std::nullopt;
        if (!text.has_value()) {
            return m_properties.unknown(label(), kNameProperty);
        }
        name = icu::UnicodeString::fromUTF8(*text);
        return KFR::ok;
    }
    /// An entity without a parent; derived classes that have one override it.
    KFRResult getParent(KFRSmartPointer<appfw::IEntityInterface>&) override { return kNoParent; }
    /// Not set; display groups override it.
    KFRResult getFlag(bool& flag) override
    {
        flag = false;
        return KFR::ok;
    }

    std::string getObjectName() override { return "Entity " + label(); }

private:
    [[nodiscard]] EntityService::Entity handle() { return EntityService::Entity(this); }
    [[nodiscard]] std::string label() const
    {
        KFRAny const* const name = m_properties.find(kNameProperty);
        return labelOf(name != nullptr ? nameIn(*name) : std::nullopt, m_reference.id);
    }

    CAE::EntityReference m_reference;
    std::shared_ptr<EntityService> m_service;
    PropertyTable m_properties;
};

/// An entity without further interfaces.
using EntityObject = EntityObjectOf<>;

}  // namespace vrn::orlo::host::model
