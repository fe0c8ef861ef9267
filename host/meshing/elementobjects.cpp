#include "host/meshing/elementobjects.h"

namespace vrn::orlo::host::meshing {

KFRResult Node::getId(unsigned long long& id)
{
    id = static_cast<unsigned long long>(m_tables->store().nodes().idOf(m_number));
    return KFR::ok;
}

KFRResult Node::getNumber(int& number)
{
    number = static_cast<int>(m_number);
    return KFR::ok;
}

KFRResult Node::getLocation(KFRDouble3DPoint& location)
{
    Point const& position = m_tables->store().position(m_number);
    location = {position[0], position[1], position[2]};
    return KFR::ok;
}

ElementTraits const& Element::traits() const
{
    return traitsOf(m_tables->store().typeOf(m_number));
}

KFRResult Element::getId(unsigned long long& id)
{
    id = static_cast<unsigned long long>(m_tables->store().elements().idOf(m_number));
    return KFR::ok;
}

KFRResult Element::getNumber(int& number)
{
    number = static_cast<int>(m_number);
    return KFR::ok;
}

KFRResult Element::getNodeCount(int& count)
{
    count = traits().m_nodeCount;
    return KFR::ok;
}

KFRResult Element::getShape(int& shape)
{
    if (traits().m_shape == kNoShape) {
        return kShapeless;
    }
    shape = traits().m_shape;
    return KFR::ok;
}

KFRResult Element::getNodes(CAE::INodeSequence& nodes)
{
    auto const numbers = m_tables->store().nodesOf(m_number);
    CAE::INodeSequence found;
    found.reserve(numbers.size());
    for (LocalNumber const number : numbers) {
        found.append(KFR::make<Node>(m_tables, number));
    }
    nodes = found;
    return KFR::ok;
}

KFRResult Element::getMesh(KFRSmartPointer<CAE::IMeshInterface>& mesh)
{
    auto const holder = m_body->subMeshOf(m_tables->store(), m_tables->store().groupOf(m_number));
    if (holder == KFR::NULLSP) {
        return kNoMesh;
    }
    mesh = holder;
    return KFR::ok;
}

LocalNumber findElement(MeshStore const& store, unsigned long long id, bool flag,
                        std::string const& holder, KFRResult& result)
{
    LocalNumber const number = numberIn(store.elements(), id, flag);
    result = number != 0 ? KFRResult(KFR::ok)
                         : KFRResult(kNoElement)
                               .addParam(holder + " has no element with the " +
                                         (flag ? "id " : "number ") + std::to_string(id) + ".");
    return number;
}

}  // namespace vrn::orlo::host::meshing
