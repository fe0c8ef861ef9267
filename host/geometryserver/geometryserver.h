/// \file
/// The numbers of the geometry server, and what they stand for: entities of the open models, and
/// temporary lines.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/geometry/geometryqueries.h"
#include "host/model/geometrystore.h"

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

namespace vrn::orlo::host::geometryserver {

/// An entity for the length of a question.
///
/// Ownership  Keeps its geometry from going, hence not to be stored.
struct FoundEntity {
    std::shared_ptr<model::GeometryStore> m_store;
    std::shared_ptr<geometry::GeometryQueries const> m_queries;
    geometry::Entity const* m_entity = nullptr;  ///< Never null.

    [[nodiscard]] unsigned number() const noexcept { return m_entity->m_number; }
    [[nodiscard]] geometry::EntityClass entityClass() const noexcept { return m_entity->m_class; }
    [[nodiscard]] geometry::GeometryModel const& model() const noexcept
    {
        return m_store->geometry();
    }
};

/// An endless line that somebody has made for a query.
struct TemporaryLine {
    geometry::GeometryQueries::Line m_line;
    int m_face = 0;  ///< The only face that it may be used with; 0 for any entity.
};

/// Gives numbers, each once over its whole life, and finds what they stand for. What has been
/// deleted, and what was of a model that has gone, is not there.
///
/// To open a model, take as many numbers as its geometry has entities, have
/// geometry::GeometryModel::numberFrom() give them out, and open() what holds the geometry.
///
/// Ownership  Holds no model. Made as a shared object: all that the server hands out knows it
///            weakly, and fails when it has gone.
/// Threads    Any thread while no model changes or goes.
/// Cost       find(): logarithm of the number of open models.
class GeometryServer {
public:
    GeometryServer() = default;
    GeometryServer(GeometryServer const&) = delete;
    GeometryServer& operator=(GeometryServer const&) = delete;

    /// The first of `count` numbers in a row that nobody else gets; the very first is 1.
    ///
    /// Failure    std::length_error when there are not as many left, and none is taken.
    unsigned takeNumbers(std::size_t count);

    /// Failure    std::invalid_argument for null, and for a geometry whose numbers were not taken
    ///            here, or were opened before.
    void open(std::shared_ptr<model::GeometryStore> const& geometry);

    [[nodiscard]] std::optional<FoundEntity> find(int number) const;

    /// The number of the line.
    ///
    /// Failure    As takeNumbers().
    int addLine(TemporaryLine const& line);
    [[nodiscard]] std::optional<TemporaryLine> line(int number) const;
    /// False for a number that is no line's, or no longer.
    bool removeLine(int number);
    /// How many lines there are. Whoever makes one deletes it: at rest there are none.
    [[nodiscard]] std::size_t temporaryCount() const;

private:
    struct OpenModel {
        std::weak_ptr<model::GeometryStore> m_store;
        std::shared_ptr<geometry::GeometryQueries const> m_queries;
    };

    [[nodiscard]] unsigned takeNumbersLocked(std::size_t count);

    mutable std::mutex m_mutex;
    unsigned m_next = 1;
    std::map<unsigned, std::size_t> m_taken;         // counts by first number, until opened
    mutable std::map<unsigned, OpenModel> m_models;  // by first number; those gone go when met
    std::map<int, TemporaryLine> m_lines;
};

}  // namespace vrn::orlo::host::geometryserver
