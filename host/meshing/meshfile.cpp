#include "host/meshing/meshfile.h"

#include "host/meshing/abaqusreader.h"
#include "host/meshing/bulkdatareader.h"
#include "host/meshing/gmshreader.h"
#include "host/meshing/meshfileerror.h"
#include "host/meshing/names.h"

namespace vrn::orlo::host::meshing {

MeshFile readMeshFile(std::filesystem::path const& file)
{
    constexpr char const* kEndings =
        "give an Abaqus input file (.inp), a Gmsh mesh (.msh) or bulk data (.bdf, .nas, .dat)";
    std::string const ending = inCapitals(file.extension().string());
    if (ending == ".INP") {
        return readAbaqusMesh(file);
    }
    if (ending == ".MSH") {
        return readGmshMesh(file);
    }
    if (ending == ".BDF" || ending == ".NAS") {
        return readBulkDataMesh(file);
    }
    if (ending == ".DAT") {
        if (!looksLikeBulkData(file)) {
            throw MeshFileError(file, 0, "ends in .dat and does not look like bulk data", kEndings);
        }
        return readBulkDataMesh(file);
    }
    throw MeshFileError(file, 0,
                        ending.empty()
                            ? "has no ending that tells what kind of mesh it is"
                            : "\"" + file.extension().string() + "\" is no ending of a mesh file",
                        kEndings);
}

}  // namespace vrn::orlo::host::meshing
