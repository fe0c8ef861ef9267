/// \file
/// Objects for the members of the service holders whose interfaces have operations. Each hands out
/// what the test has put into it, and always with a failing result: nobody is to read it.

#pragma once

#include "platform/appfw/appfw.h"
#include "platform/appfw/commands.h"
#include "platform/appfw/entity.h"
#include "platform/appfw/frameworkaccess.h"
#include "platform/appfw/selection.h"
#include "platform/appfw/transactions.h"
#include "platform/caedata/caedata.h"
#include "platform/kfr/kfrconfiguration.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/shell/shell.h"
#include "platform/sysutils/sysutils.h"
#include "tests/support/silent.h"

#include <unicode/unistr.h>

#include <map>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// What an operation with an out-argument does: leaves it as it was when there is nothing to give.
template <class Handle>
KFRResult handOut(Handle const& given, Handle& out)
{
    if (given != KFR::NULLSP) {
        out = given;
    }
    return KFR::notDone;
}

class FakePlugin final : public KFRServiceObjectImpl<appfw::IPluginInterface> {
public:
    icu::UnicodeString folder;

    KFRResult getFolder(icu::UnicodeString& out) override
    {
        out = folder;
        return KFR::notDone;
    }
};

class FakeProduct final : public KFRServiceObjectImpl<appfw::IProductInterface> {
public:
    icu::UnicodeString name;

    KFRResult getName(icu::UnicodeString& out) override
    {
        out = name;
        return KFR::notDone;
    }
};

/// The application: framework access, headless query and help in one object, as in the real one.
class FakeFrameworkAccess final
    : public KFRServiceObjectImpl<appfw::IFrameworkAccessInterface, appfw::KFRIAppExecutive,
                                  shell::IShellHelp> {
public:
    struct Status {
        icu::UnicodeString text;
        appfw::Severity severity;
    };
    struct Help {
        std::string key;
        KFRSequence<KFRAny> params;
        bool flag;
    };

    std::map<std::string, KFRSmartPointer<appfw::IPluginInterface>> plugins;
    KFRSmartPointer<appfw::IProductInterface> product;
    KFRSmartPointer<appfw::KFRIStateServiceInterface> stateService;
    int headless = 0;
    std::vector<Status> statuses;
    std::vector<Help> helps;

    KFRResult getPlugin(std::string const& name,
                        KFRSmartPointer<appfw::IPluginInterface>& plugin) override
    {
        return handOut(plugins[name], plugin);
    }
    KFRResult getProduct(KFRSmartPointer<appfw::IProductInterface>& out) override
    {
        return handOut(product, out);
    }
    KFRResult showStatusMessage(icu::UnicodeString const& text, appfw::Severity severity) override
    {
        statuses.push_back({text, severity});
        return KFR::notDone;
    }
    KFRResult getStateService(KFRSmartPointer<appfw::KFRIStateServiceInterface>& out) override
    {
        return handOut(stateService, out);
    }
    int isHeadless() override { return headless; }
    KFRResult show(std::string const& key, KFRSequence<KFRAny> const& params, bool flag) override
    {
        helps.push_back({key, params, flag});
        return KFR::notDone;
    }
};

class FakeTrashBinFactory final : public KFRServiceObjectImpl<appfw::KFRITrashBinFactoryInterface> {
public:
    KFRSmartPointer<appfw::KFRITrashBinInterface> trashBin;

    KFRResult getTrashBin(KFRSmartPointer<appfw::KFRITrashBinInterface>& out) override
    {
        return handOut(trashBin, out);
    }
};

class FakeUndoRedoFactory final : public KFRServiceObjectImpl<appfw::IURFactoryInterface> {
public:
    KFRIService recorder;

    KFRResult getMacroRecorder(KFRIService& out) override { return handOut(recorder, out); }
};

class FakeSelectionManager final : public KFRServiceObjectImpl<appfw::ISelectionManagerInterface> {
public:
    KFRSmartPointer<appfw::IPickFilterManagerInterface> pickFilters;

    KFRResult getPickFilterManager(
        KFRSmartPointer<appfw::IPickFilterManagerInterface>& out) override
    {
        return handOut(pickFilters, out);
    }
};

class FakeModel final : public KFRServiceObjectImpl<silent::ModelView> {
public:
    KFRSmartPointer<CAE::IPartInterface> designPart;

    KFRResult getDesignPart(KFRSmartPointer<CAE::IPartInterface>& out) override
    {
        return handOut(designPart, out);
    }
};

class FakeRootManager final : public KFRServiceObjectImpl<appfw::IRootManagerInterface> {
public:
    /// By number within the owner.
    std::map<unsigned int, KFRSmartPointer<appfw::IEntityInterface>> entities;

    KFRSmartPointer<appfw::IEntityInterface> getEntity(
        CAE::EntityReference const& reference) override
    {
        return entities[reference.id];
    }
    KFRSmartPointer<appfw::IEntityInterface> getEntityOfObject(KFRIService const&) override
    {
        return {};
    }
    KFRSmartPointer<appfw::IEntityListInterface> createEntityList(appfw::IEntities const&) override
    {
        return {};
    }
};

class FakeSession final : public KFRServiceObjectImpl<CAE::IPersistenceSessionInterface> {
public:
    KFRSmartPointer<CAE::IModelInterface> currentModel;

    KFRResult getCurrentModel(KFRSmartPointer<CAE::IModelInterface>& out) override
    {
        return handOut(currentModel, out);
    }
};

class FakePFW final : public KFRServiceObjectImpl<CAE::IPFWInterface> {
public:
    KFRSmartPointer<CAE::IPersistenceSessionInterface> session;
    std::map<icu::UnicodeString, KFRSmartPointer<CAE::IModelInterface>> models;

    KFRResult getSession(KFRSmartPointer<CAE::IPersistenceSessionInterface>& out) override
    {
        return handOut(session, out);
    }
    KFRResult getModelByName(icu::UnicodeString const& name,
                             KFRSmartPointer<CAE::IModelInterface>& out) override
    {
        return handOut(models[name], out);
    }
};

class FakeConfigurationManager final
    : public KFRServiceObjectImpl<KFRIConfigurationManagerInterface> {
public:
    std::map<icu::UnicodeString, KFRSmartPointer<KFRIConfigurationInterface>> configurations;

    KFRResult getConfiguration(icu::UnicodeString const& name,
                               KFRSmartPointer<KFRIConfigurationInterface>& out) override
    {
        return handOut(configurations[name], out);
    }
};

/// No file exists for it.
class FakeFileUtils final
    : public KFRServiceObjectImpl<KFR::Util::SystemUtils::KFRIFileUtilsInterface> {
public:
    KFRResult exists(icu::UnicodeString const&) override { return KFR::notDone; }
    KFRResult remove(icu::UnicodeString const&) override { return KFR::ok; }
};

/// Changes no path.
class FakePathUtils final
    : public KFRServiceObjectImpl<KFR::Util::SystemUtils::KFRIPathUtilsInterface> {
public:
    icu::UnicodeString toNative(icu::UnicodeString const& path) override { return path; }
    icu::UnicodeString join(icu::UnicodeString const& folder,
                            icu::UnicodeString const& path) override
    {
        return folder + u'/' + path;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
