#include "host/geometryserver/geometryserver.h"

#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace vrn::orlo::host::geometryserver {

unsigned GeometryServer::takeNumbers(std::size_t count)
{
    std::lock_guard const lock(m_mutex);
    unsigned const first = takeNumbersLocked(count);
    m_taken.insert_or_assign(first, count);
    return first;
}

unsigned GeometryServer::takeNumbersLocked(std::size_t count)
{
    // Clients see numbers as int.
    constexpr std::size_t kEnd = std::numeric_limits<int>::max();
    if (count > kEnd - m_next) {
        throw std::length_error("The geometry server has " + std::to_string(kEnd - m_next) +
                                " numbers left, and " + std::to_string(count) +
                                " are needed. Start the application anew.");
    }
    unsigned const first = m_next;
    m_next += static_cast<unsigned>(count);
    return first;
}

void GeometryServer::open(std::shared_ptr<model::GeometryStore> const& geometry)
{
    if (geometry == nullptr) {
        throw std::invalid_argument("GeometryServer::open: there is no geometry to open.");
    }
    geometry::GeometryModel const& model = geometry->geometry();
    if (model.m_entities.empty()) {
        return;  // nothing could be found in it
    }
    unsigned const first = model.firstNumber();
    auto queries = std::make_shared<geometry::GeometryQueries>(model);

    std::lock_guard const lock(m_mutex);
    auto const taken = m_taken.find(first);
    if (taken == m_taken.end() || taken->second < model.m_entities.size()) {
        throw std::invalid_argument(
            "GeometryServer::open: the " + std::to_string(model.m_entities.size()) +
            " numbers from " + std::to_string(first) + " of " + model.m_sourceFile +
            " are not its own. Give it such as takeNumbers() gives, by numberFrom().");
    }
    m_taken.erase(taken);
    std::erase_if(m_models, [](auto const& row) { return row.second.m_store.expired(); });
    m_models.emplace(first, OpenModel{geometry, std::move(queries)});
}

std::optional<FoundEntity> GeometryServer::find(int number) const
{
    auto const wanted = static_cast<unsigned>(number);  // below 0: beyond all that are taken
    FoundEntity found;
    {
        std::lock_guard const lock(m_mutex);
        auto const next = m_models.upper_bound(wanted);
        if (next == m_models.begin()) {
            return std::nullopt;
        }
        auto const row = std::prev(next);
        found.m_store = row->second.m_store.lock();
        if (found.m_store == nullptr) {
            m_models.erase(row);
            return std::nullopt;
        }
        found.m_queries = row->second.m_queries;
    }
    if (!found.m_store->exists(wanted)) {
        return std::nullopt;
    }
    found.m_entity = found.model().entity(wanted);
    return found;
}

int GeometryServer::addLine(TemporaryLine const& line)
{
    std::lock_guard const lock(m_mutex);
    auto const number = static_cast<int>(takeNumbersLocked(1));
    m_lines.emplace(number, line);
    return number;
}

std::optional<TemporaryLine> GeometryServer::line(int number) const
{
    std::lock_guard const lock(m_mutex);
    auto const row = m_lines.find(number);
    return row != m_lines.end() ? std::optional(row->second) : std::nullopt;
}

bool GeometryServer::removeLine(int number)
{
    std::lock_guard const lock(m_mutex);
    return m_lines.erase(number) != 0;
}

std::size_t GeometryServer::temporaryCount() const
{
    std::lock_guard const lock(m_mutex);
    return m_lines.size();
}

}  // namespace vrn::orlo::host::geometryserver
