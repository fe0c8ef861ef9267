/// \file
/// A list of named values.

#pragma once

#include "platform/appfw/commands.h"
#include "platform/deps/btree.h"
#include "platform/kfr/kfrany.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace vrn::orlo::plugin::modeling {

/// Named values, as commands take and return them.
///
/// Order      By name, bytewise: capitals first. The order of insertion is not kept.
/// Failure    Names that are not there and values of another kind answer false and leave the target
///            as it was.
/// Threads    A value.
class MODELING_API DataBunch {
    using Items = btree::btree_map<std::string, KFRAny>;

public:
    struct BunchItem {
        std::string name;
        KFRAny value;

        template <KFR::detail::Storable T>
        BunchItem(std::string itemName, T&& itemValue)
            : name(std::move(itemName)), value(std::forward<T>(itemValue))
        {
        }
        BunchItem(std::string itemName, KFRAny itemValue)
            : name(std::move(itemName)), value(std::move(itemValue))
        {
        }
    };
    using iterator = Items::iterator;
    using const_iterator = Items::const_iterator;

    DataBunch() = default;
    /// Of items with the same name the last one counts, here and below.
    DataBunch(std::initializer_list<BunchItem> const& items);
    explicit DataBunch(appfw::CmdParameters const& parameters);
    /// Empty unless `any` holds CmdParameters.
    explicit DataBunch(KFRAny const& any);

    /// Copies the value out.
    bool queryData(std::string const& name, KFRAny& value) const;
    /// The same for a value of the type T.
    template <class T>
    bool queryValue(std::string const& name, T& value) const
    {
        auto const item = m_items.find(name);
        return item != m_items.end() && (item->second >>= value);
    }
    /// The value, or `otherwise` without one of that type.
    template <class T>
    [[nodiscard]] T valueOr(std::string const& name, T otherwise) const
    {
        queryValue(name, otherwise);
        return otherwise;
    }

    /// The value of that name, an empty one being made if need be: `bunch["name"] <<= 5`.
    KFRAny& operator[](std::string const& name) { return m_items[name]; }
    template <KFR::detail::Storable T>
    void setValue(std::string const& name, T&& value)
    {
        m_items[name] <<= std::forward<T>(value);
    }

    [[nodiscard]] bool hasData(std::string const& name) const { return m_items.contains(name); }
    void remove(std::string const& name) { m_items.erase(name); }
    [[nodiscard]] bool empty() const { return m_items.empty(); }
    void clear() { m_items.clear(); }

    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    [[nodiscard]] const_iterator begin() const { return m_items.begin(); }
    [[nodiscard]] const_iterator end() const { return m_items.end(); }

    [[nodiscard]] appfw::CmdParameters toCmdParams() const;
    /// toCmdParams() as one value.
    [[nodiscard]] KFRAny toKFRAny() const;

private:
    void take(appfw::CmdParameters const& parameters);

    Items m_items;
};

}  // namespace vrn::orlo::plugin::modeling
