#include "host/selection/selectionmanager.h"

#include "host/model/testevents.h"
#include "host/selection/displaymanager.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vrn::orlo::host::test {
namespace {

using ddm::SelectionChangeMode;
using selection::DisplayManager;
using selection::SelectionManager;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Numbers = std::vector<unsigned int>;

/// References of type 7 with these ids.
CAE::EntityReferenceSequence refs(Numbers const& ids, unsigned int typeId = 7)
{
    CAE::EntityReferenceSequence references;
    for (unsigned int const id : ids) {
        references.append({{}, typeId, id, 0});
    }
    return references;
}

class SelectionTest : public ::testing::Test {
protected:
    KFRSmartPointer<NotingEventManager> const m_events = KFR::make<NotingEventManager>();
    KFRSmartPointer<DisplayManager> const m_display = KFR::make<DisplayManager>();
    KFRSmartPointer<SelectionManager> const m_selection =
        KFR::make<SelectionManager>(m_events, m_display->pickingSettings());

    void open(std::string const& stage, bool multi = true)
    {
        m_selection->pickFilters().initStagePickFilter(1, {7}, 0, {}, multi, stage);
    }
};

TEST_F(SelectionTest, APickChangesTheSelectionByItsMode)
{
    struct Row {
        char const* m_name;
        SelectionChangeMode m_mode;
        bool m_multi;
        Numbers m_picked;
        Numbers m_after;  // of 1, 2, 3
        char const* m_event;
    };
    constexpr char const* kChanged = "SelectionManagerEvent 1";
    constexpr char const* kCleared = "SelectionManagerEvent 2";
    using enum SelectionChangeMode;
    // clang-format off
    Row const rows[] = {
        {"replace",                       replace, true,  {4, 3, 4},    {4, 3},       kChanged},
        {"replace by the same",           replace, true,  {1, 2, 3},    {1, 2, 3},    nullptr},
        {"replace by nothing",            replace, true,  {},           {},           kCleared},
        {"replace by one",                replace, false, {5, 6},       {5},          kChanged},
        {"add",                           add,     true,  {2, 4, 4},    {1, 2, 3, 4}, kChanged},
        {"add nothing to one",            add,     false, {},           {1, 2, 3},    nullptr},
        {"add where one is allowed",      add,     false, {4},          {4},          kChanged},
        {"remove",                        remove,  true,  {2, 5},       {1, 3},       kChanged},
        {"remove all",                    remove,  true,  {3, 2, 1},    {},           kCleared},
        {"toggle",                        toggle,  true,  {4, 2, 4},    {1, 3, 4},    kChanged},
        {"toggle one off",                toggle,  false, {2},          {1, 3},       kChanged},
        {"toggle one on",                 toggle,  false, {4},          {4},          kChanged},
        {"a mode beyond the named ones",  SelectionChangeMode{4}, true, {4}, {4},     kChanged},
        {"nothing in such a mode",        SelectionChangeMode{4}, true, {},  {},      kCleared},
    };
    // clang-format on
    for (Row const& row : rows) {
        SCOPED_TRACE(row.m_name);
        m_selection->pickFilters().setMultiSelection(1, true);
        m_selection->pick(refs({1, 2, 3}), replace);
        m_events->takeLines();
        m_selection->pickFilters().setMultiSelection(1, row.m_multi);
        m_selection->pick(refs(row.m_picked), row.m_mode);
        EXPECT_EQ(m_selection->selection(), refs(row.m_after));
        EXPECT_EQ(m_events->m_lines.empty(), row.m_event == nullptr);
        EXPECT_TRUE(m_events->m_lines.empty() || m_events->takeLines().back() == row.m_event);
    }
}

TEST_F(SelectionTest, TheDisplayKeepsThePickModeAndHighlightsByKind)
{
    KFRSmartPointer<ddm::KFRIPickingSettingAdapter> settings;
    EXPECT_THAT(m_display->getPickingSettings(settings), IsOk());
    settings->setPickMode(true, SelectionChangeMode::add);
    m_selection->pick(refs({1, 2}));
    m_selection->pick(refs({3}));
    EXPECT_EQ(m_selection->selection(), refs({1, 2, 3}));
    settings->setPickMode(false, SelectionChangeMode::replace);
    m_selection->pick(refs({5, 6}));
    EXPECT_EQ(m_selection->selection(), refs({5}));

    m_display->addHighlights(0, refs({1}));
    m_display->addHighlights(0, refs({2}));
    m_display->addHighlights(3, refs({1}));
    EXPECT_EQ(m_display->highlights(0), refs({1, 2}));
    m_display->clearHighlights({0, 4});
    EXPECT_THAT(m_display->highlights(0), IsEmpty());
    EXPECT_EQ(m_display->highlights(3), refs({1}));
}

TEST_F(SelectionTest, EachStageKeepsItsSelectionAndIgnoresWhatItDoesNotAllow)
{
    m_selection->pick(refs({9}));
    open("faces");
    EXPECT_THAT(m_selection->selection(), IsEmpty());
    m_selection->pick(refs({1, 2}));
    m_selection->pick(refs({3}, 8));
    open("target", false);
    m_selection->pick(refs({4, 5}));
    EXPECT_EQ(m_selection->selection(), refs({4}));
    EXPECT_EQ(m_selection->selectionOf("faces"), refs({1, 2}));
    open("faces");
    EXPECT_EQ(m_selection->selection(), refs({1, 2}));
    m_selection->pickFilters().clearPickFilter(1);
    EXPECT_EQ(m_selection->selection(), refs({9}));
    EXPECT_EQ(m_selection->selectionOf("target"), refs({4}));

    auto const payload = m_events->m_events.back().payload.get<appfw::CmdParameters>();
    ASSERT_NE(payload, nullptr);
    EXPECT_EQ(*payload->at(0).value.get<std::string>(), "target");
    EXPECT_EQ(*payload->at(1).value.get<CAE::EntityReferenceSequence>(), refs({4}));

    m_events->takeLines();
    m_selection->clear();
    m_selection->clear();
    m_selection->clearAll();
    EXPECT_THAT(m_events->takeLines(),
                ElementsAre("SelectionManagerEvent 2", "SelectionManagerEvent 2 faces",
                            "SelectionManagerEvent 2 target"));
    EXPECT_THAT(m_selection->selectionOf("faces"), IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::host::test
