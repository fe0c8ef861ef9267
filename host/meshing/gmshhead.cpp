#include "host/meshing/gmshhead.h"

#include "host/meshing/meshtext.h"

#include <array>
#include <cstddef>
#include <cstdlib>

namespace vrn::orlo::host::meshing {

namespace {

constexpr char const* kTag = "tag of an entity";
constexpr char const* kPhysical = "tag of a physical group";
constexpr char const* kCount = "count";

}  // namespace

void GmshHead::readFormat(GmshSource& source)
{
    source.beginRecord();
    std::string const version(source.word());
    if (version != "2" && version != "2.0" && version != "2.1" && version != "2.2" &&
        version != "4" && version != "4.0" && version != "4.1") {
        source.refuse("the mesh is of format " + shown(version) + ", which is not read",
                      "write it in format 4.1 or 2.2");
    }
    m_major = version[0] - '0';
    m_is41 = version == "4.1";
    m_is20 = version == "2" || version == "2.0";
    bool const isBinary = source.textInteger("kind of file") != 0;
    std::int64_t const size = source.textCount("size of a number");
    if (isBinary && size != 8) {
        source.refuse("numbers of " + std::to_string(size) + " bytes are not read",
                      "write the mesh with 8 bytes");
    }
    if (isBinary) {
        source.beginBinary();
    }
}

void GmshHead::readPhysicalNames(GmshSource& source)
{
    std::int64_t const count = source.textCount(kCount);
    for (std::int64_t i = 0; i < count; ++i) {
        source.beginLine();
        std::int64_t const dimension = m_is20 ? 0 : source.textInteger("dimension");
        std::int64_t const tag = source.textInteger(kPhysical);
        std::string const name(source.quoted());
        // Format 2.0 does not say of which dimension a group is.
        for (std::int64_t any = 0; m_is20 && any < 4; ++any) {
            m_names[{any, tag}] = name;
        }
        m_names[{dimension, tag}] = name;
    }
}

void GmshHead::readEntities(GmshSource& source)
{
    source.beginRecord();
    std::array<std::int64_t, 4> counts{};
    for (std::int64_t& count : counts) {
        count = source.int64(kCount);
    }
    for (std::int64_t dimension = 0; dimension < 4; ++dimension) {
        for (std::int64_t i = 0; i < counts[static_cast<std::size_t>(dimension)]; ++i) {
            readEntity(source, dimension);
        }
    }
}

void GmshHead::readEntity(GmshSource& source, std::int64_t dimension)
{
    source.beginRecord();
    std::int64_t const tag = source.int32(kTag);
    int const box = dimension == 0 && m_is41 ? 3 : 6;
    for (int i = 0; i < box; ++i) {
        static_cast<void>(source.real("coordinate"));
    }
    std::int64_t const physicals = source.int64(kCount);
    for (std::int64_t i = 0; i < physicals; ++i) {
        m_physicals[{dimension, tag}].push_back(std::abs(source.int32(kPhysical)));
    }
    std::int64_t const bounds = dimension > 0 ? source.int64(kCount) : 0;
    for (std::int64_t i = 0; i < bounds; ++i) {
        static_cast<void>(source.int32(kTag));
    }
    source.endRecord();
}

std::string GmshHead::nameOf(std::int64_t dimension, std::int64_t physical) const
{
    auto const found = m_names.find({dimension, physical});
    return found != m_names.end() && !found->second.empty()
               ? found->second
               : "physical " + std::to_string(physical);
}

std::vector<std::int64_t> GmshHead::physicalsOf(std::int64_t dimension, std::int64_t entity) const
{
    auto const found = m_physicals.find({dimension, entity});
    return found != m_physicals.end() ? found->second : std::vector<std::int64_t>();
}

}  // namespace vrn::orlo::host::meshing
