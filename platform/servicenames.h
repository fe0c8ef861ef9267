/// \file
/// The names under which the application's services are known. Read by ServiceHelper and by the
/// host's registry, and by nobody else.

#pragma once

#include <array>
#include <string_view>

namespace vrn::orlo::servicenames {

/// The component's own service.
inline constexpr char const* kUtilities = "vrn.orlo.plugin.modeling.Utilities";

// Services with a typed operation.
inline constexpr char const* kAEMFPStar = "KFR.AEM.Legacy.IFPStar";
inline constexpr char const* kBizLogicService = "vrn.orlo.plugin.modeling.BizLogic";
inline constexpr char const* kCommonService = "vrn.orlo.plugin.modeling.Service";
inline constexpr char const* kEntityFactory = "vrn.orlo.plugin.modeling.Entity";

// Services that are looked up afresh on every call.
inline constexpr char const* kAEMExportBulk = "KFR.AEM.ExportBulk";
inline constexpr char const* kAEMImportBulk = "KFR.AEM.ImportBulk";
inline constexpr char const* kInteractionContact = "KFR.AEM.Contact";

// Services that the library's own helpers look up through the provider.
inline constexpr char const* kConfigurationManager = "KFR.Framework.ConfigurationManager";
inline constexpr char const* kMessageCatalog = "vrn.orlo.appfw.MessageCatalog";
inline constexpr char const* kMessageDisplay = "vrn.orlo.appfw.MessageDisplay";

// Services that only a chain of calls uses.
inline constexpr char const* kGSCUtility = "vrn.orlo.gsc.GSCUtility";
inline constexpr char const* kShellEntities = "vrn.orlo.plugin.shell.ShellEntities";

/// A service and the operation of ServiceHelper that asks for it, or where none does its short name.
struct Row {
    std::string_view m_operation;
    std::string_view m_name;
};

/// Every service that an operation names, in the order of the operations' groups.
// clang-format off
inline constexpr std::array kAll{
#define NAMED_SERVICE(operation, name) Row{#operation, name},
#include "platform/servicenames.def"
    Row{"getAEMFPStar",          kAEMFPStar},
    Row{"getBizLogicService",    kBizLogicService},
    Row{"getCommonService",      kCommonService},
    Row{"getEntityFactory",      kEntityFactory},
    Row{"getAEMExportBulk",      kAEMExportBulk},
    Row{"getAEMImportBulk",      kAEMImportBulk},
    Row{"getInteractionContact", kInteractionContact},
    Row{"getGSCMath",            kGSCUtility},
    Row{"configurationManager",  kConfigurationManager},
    Row{"messageCatalog",        kMessageCatalog},
    Row{"messageDisplay",        kMessageDisplay},
};
// clang-format on

static_assert(kAll.size() == 57);

}  // namespace vrn::orlo::servicenames
