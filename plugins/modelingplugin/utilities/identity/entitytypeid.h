/// \file
/// Entity type ids and their names.

#pragma once

#include "platform/deps/btree.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

namespace vrn::orlo::plugin::modeling {

/// An entity type: its run-time id and its name.
///
/// What the type registry has answered is kept: names by id, ids by name, and ids of groups by
/// name, in three caches that do not feed each other.
///
/// Failure    Making one from a name, or from a name with ids, throws KFRSystemException when the
///            registry is missing or answers no cast; nothing is cached then. Making one from an id
///            gives an empty name in both cases, which is not cached.
/// Threads    One thread at a time: the caches have no lock.
/// Cost       Once cached, a B-tree search.
class MODELING_API EntityTypeID {
public:
    EntityTypeID(icu::UnicodeString name);  // NOLINT: callers pass a name or an id for a type
    EntityTypeID(unsigned int id);          // NOLINT
    /// The type that stands for a group of types.
    EntityTypeID(icu::UnicodeString& name, KFRSequence<unsigned int>& ids);

    [[nodiscard]] unsigned int typeID() const { return m_typeID; }
    [[nodiscard]] icu::UnicodeString typeName() const { return m_typeName; }

    /// Name of an id, as EntityTypeID(id).typeName() gives it, without the copies: for tests that
    /// run over thousands of references. Holds until the next type is made.
    [[nodiscard]] static icu::UnicodeString const& nameOf(unsigned int id);

    /// Drops the names that were made into ids from the registry, and empties the caches. Names of
    /// groups, and names that were only ever read from ids, stay registered. To be called by the
    /// owning plug-in at its stop, before it releases the services.
    static void unRegister();

private:
    unsigned int m_typeID = 0;
    icu::UnicodeString m_typeName;

    static btree::btree_map<icu::UnicodeString, unsigned int> m_name2id;
    static btree::btree_map<unsigned int, icu::UnicodeString> m_id2name;
    static btree::btree_map<icu::UnicodeString, unsigned int> m_name2groupid;
};

}  // namespace vrn::orlo::plugin::modeling
