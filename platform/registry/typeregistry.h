/// \file
/// The registry of entity types.

#pragma once

#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

namespace KFR::Services::TypeRegistry {

/// Hands out the numeric ids of entity types. Ids differ from run to run, hold for the length of
/// one, and are never 0.
class ITypeRegistryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Services.TypeRegistry.ITypeRegistry")

    /// The id of the name; made if the name is new.
    virtual unsigned int getTypeId(icu::UnicodeString const& name) = 0;
    /// The id of the type that stands for a group of types; made if the name is new.
    virtual unsigned int getGroupTypeId(icu::UnicodeString const& name,
                                        KFRSequence<unsigned int> const& ids) = 0;
    /// The name of the id; empty for an id that was never given.
    virtual icu::UnicodeString getTypeName(unsigned int id) = 0;
    /// Forgets the name and its id.
    virtual void unregisterType(icu::UnicodeString const& name) = 0;
};

}  // namespace KFR::Services::TypeRegistry
