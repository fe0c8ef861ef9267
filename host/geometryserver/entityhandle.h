/// \file
/// How objects of the server come to their entity, and its values to the platform's records. For
/// the sources of this module only.

#pragma once

#include "host/geometryserver/geometryserver.h"
#include "platform/gsc/geometryentities.h"
#include "platform/kfr/kfrresult.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vrn::orlo::host::geometryserver {

/// An entity that may go, with its model or with the whole server.
class EntityHandle {
public:
    EntityHandle(std::weak_ptr<GeometryServer const> server, int number)
        : m_server(std::move(server)), m_number(number)
    {
    }

    /// What `ask` says of the entity, an optional value. Fails, with `out` as it was, when that is
    /// nothing, and when the entity has gone.
    template <class Out, class Ask>
    KFRResult answer(Out& out, Ask const& ask) const
    {
        auto const server = m_server.lock();
        std::optional<FoundEntity> const found = server ? server->find(m_number) : std::nullopt;
        std::optional<Out> value = found ? ask(*found) : std::nullopt;
        if (!value) {
            return KFR::notDone;
        }
        out = *std::move(value);
        return KFR::ok;
    }

private:
    std::weak_ptr<GeometryServer const> m_server;
    int m_number;
};

using Vector = geometry::GeometryQueries::Vector;

/// \tparam Record  gsc::GSCPointStruct or gsc::GSCVectorStruct, here and below
template <class Record>
[[nodiscard]] Vector vectorOf(Record const& record)
{
    return {record.x, record.y, record.z};
}

template <class Record>
[[nodiscard]] Record recordOf(Vector const& vector)
{
    return {vector[0], vector[1], vector[2]};
}

template <class Record>
[[nodiscard]] std::optional<Record> recordOf(std::optional<Vector> const& vector)
{
    return vector ? std::optional(recordOf<Record>(*vector)) : std::nullopt;
}

[[nodiscard]] inline gsc::GSCPointList pointListOf(std::vector<Vector> const& vectors)
{
    gsc::GSCPointList points;
    points.reserve(vectors.size());
    for (Vector const& vector : vectors) {
        points.append(recordOf<gsc::GSCPointStruct>(vector));
    }
    return points;
}

}  // namespace vrn::orlo::host::geometryserver
