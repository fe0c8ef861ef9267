#include "host/selection/displaymanager.h"

#include <utility>

namespace vrn::orlo::host::selection {

void DisplayManager::addHighlights(int kind, CAE::EntityReferenceSequence const& references)
{
    if (!references.empty()) {
        m_highlights[kind].append(references);
    }
}

CAE::EntityReferenceSequence DisplayManager::highlights(int kind) const
{
    auto const found = m_highlights.find(kind);
    return found != m_highlights.end() ? found->second : CAE::EntityReferenceSequence();
}

KFRResult DisplayManager::clearHighlights(KFRSequence<int> const& kinds)
{
    for (int const kind : kinds) {
        m_highlights.erase(kind);
    }
    return KFR::ok;
}

KFRResult DisplayManager::getPickingSettings(
    KFRSmartPointer<ddm::KFRIPickingSettingAdapter>& settings)
{
    settings = m_settings;
    return KFR::ok;
}

void DisplayManager::setViewportAdapter(KFRSmartPointer<ddm::KFRIDisplayViewportAdapter> adapter)
{
    m_viewport = std::move(adapter);
}

KFRResult DisplayManager::getViewportAdapter(
    KFRSmartPointer<ddm::KFRIDisplayViewportAdapter>& adapter)
{
    if (m_viewport == KFR::NULLSP) {
        return KFR::notDone;
    }
    adapter = m_viewport;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::selection
