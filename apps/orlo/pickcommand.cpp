#include "apps/orlo/pickcommand.h"

#include "apps/orlo/console.h"
#include "apps/orlo/pickfilters.h"
#include "apps/orlo/picksource.h"
#include "apps/orlo/session.h"
#include "apps/orlo/usageerror.h"
#include "plugins/modelingplugin/utilities/identity/entconvert.h"
#include "plugins/modelingplugin/utilities/selection/selectionbuffer.h"
#include "plugins/modelingplugin/utilities/selection/selectiondivider.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::EntConvert;
using plugin::modeling::SelectionBuffer;
using plugin::modeling::SelectionDivider;

void checkCount(std::vector<double> const& values, std::size_t count, char const* option,
                char const* form)
{
    if (!values.empty() && values.size() != count) {
        throw UsageError(std::string(option) + ": give " + form);
    }
}

void check(PickOptions const& options)
{
    checkCount(options.m_at, 3, "--at", "x,y,z");
    checkCount(options.m_box, 6, "--box", "x,y,z,x,y,z of two corners");
    checkCount(options.m_normal, 3, "--normal", "x,y,z");
    checkCount(options.m_area, 2, "--area", "the least and the greatest area in mm2");
    check(options.m_pixel);
    bool const hasCriterion = isGiven(options.m_pixel) || options.m_all || !options.m_at.empty() ||
                              !options.m_box.empty() || !options.m_normal.empty() ||
                              !options.m_area.empty() || !options.m_name.empty() ||
                              !options.m_ids.empty();
    if (!hasCriterion) {
        throw UsageError(
            "nothing says what to pick: give --all, --at, --box, --at-pixel, --normal, "
            "--area, --name or --id");
    }
}

std::string listOf(std::vector<std::string> const& names)
{
    std::string list;
    for (std::string const& name : names) {
        list.append(list.empty() ? "" : ", ").append(name);
    }
    return list;
}

using Bucket = CAE::EntityReferenceSequence const& (SelectionDivider::*)() const;

struct BucketRow {
    char const* m_name;
    Bucket m_bucket;
};

constexpr std::array kBuckets{BucketRow{"parts", &SelectionDivider::parts},
                              BucketRow{"bodies", &SelectionDivider::bodies},
                              BucketRow{"meshes", &SelectionDivider::meshes},
                              BucketRow{"elements", &SelectionDivider::elements},
                              BucketRow{"geometries", &SelectionDivider::geometries},
                              BucketRow{"materials", &SelectionDivider::materials},
                              BucketRow{"sections", &SelectionDivider::sections},
                              BucketRow{"behaviors", &SelectionDivider::behaviors}};

void printBuckets(SelectionDivider const& divider, std::size_t picked, std::size_t limit,
                  PickSource& source)
{
    std::printf("divided; places are in the coordinates of the part\n");
    for (BucketRow const& row : kBuckets) {
        auto const& bucket = (divider.*row.m_bucket)();
        picked -= bucket.size();
        std::printf("  %-10s %zu\n", row.m_name, bucket.size());
        for (std::size_t i = 0; i < std::min(bucket.size(), limit); ++i) {
            std::printf("    %s\n", source.describe(bucket[i]).c_str());
        }
        if (bucket.size() > limit) {
            std::printf("    and %zu more (--limit)\n", bucket.size() - limit);
        }
    }
    if (picked != 0) {
        std::printf("  %zu fit no bucket\n", picked);
    }
}

}  // namespace

int pick(PickOptions const& options, SessionOptions const& sessionOptions)
{
    check(options);
    for (std::string const& filter : options.m_filters) {
        static_cast<void>(filterOf(filter));  // before a large file is read
    }
    Session session(sessionOptions);
    std::unique_ptr<PickSource> const source = openPickSource(session, options.m_file);
    PickStage const stage(options.m_filters, !options.m_single);

    auto& selection = session.application().selection();
    CAE::EntityReferenceSequence const hits = source->hits(options, selection.pickFilters());
    selection.pick(hits, ddm::SelectionChangeMode::replace);
    CAE::EntityReferenceSequence const picked = selection.selectionOf(PickStage::kName);
    std::printf("stage %s: %s\n", PickStage::kName, listOf(options.m_filters).c_str());
    std::printf("hit %zu, picked %zu\n", hits.size(), picked.size());
    int status = kDone;
    if (picked.empty()) {
        reportError("the pick hits nothing of these kinds; widen the criteria or the filter");
        status = kModelRefused;
    } else {
        std::printf("made up %zu references\n", source->madeUp(picked).size());
        // Kept under the stage's name, as a tool keeps it for its next step.
        SelectionBuffer& buffer = *SelectionBuffer::instance();
        buffer.setSelectionList(PickStage::kName, EntConvert().toOrderEntRefList(picked));
        SelectionDivider const divider(buffer.getSelectionList(PickStage::kName));
        buffer.popSelectionList(PickStage::kName);
        printBuckets(divider, picked.size(), options.m_limit, *source);
    }
    return status;
}

}  // namespace vrn::orlo::app
