#include "apps/orlo/verboptions.h"

#include "apps/orlo/meshcommand.h"
#include "apps/orlo/pickcommand.h"
#include "apps/orlo/querycommand.h"

namespace vrn::orlo::app {

void addMeshOptions(CLI::App& verb, MeshArguments& mesh)
{
    verb.add_option("--size", mesh.m_size, "Size of elements in mm");
    verb.add_option("--minimum", mesh.m_minimum,
                    "Least size that curvature may ask for, in mm (default: a twentieth)");
    verb.add_option("--order", mesh.m_order, "1, or 2 with nodes in the middle of the sides");
    verb.add_option("--dimension", mesh.m_dimension, "3, or 2 for shells on the faces of solids");
    verb.add_flag("--faces", mesh.m_faces, "Shells on the faces of solids, beside the solids'");
    verb.add_option("--curvature", mesh.m_curvature,
                    "Elements around a full circle (default: 12); 0 lets curvature alone");
    verb.add_option("--part-size", mesh.m_partSizes, "PART=MM; may be repeated")
        ->allow_extra_args(false);
    verb.add_option("--face-size", mesh.m_faceSizes, "NUMBER=MM; may be repeated")
        ->allow_extra_args(false);
}

void addPixelOptions(CLI::App& verb, PixelOptions& pixel)
{
    verb.add_option("--at-pixel", pixel.m_pixel,
                    "What shows at the pixel x,y of a window, from its top left corner")
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_option("--view", pixel.m_view,
                    "Where the eye of --at-pixel stands: iso, x, y, z, -x, -y, -z");
    verb.add_flag("--perspective", pixel.m_perspective, "See --at-pixel in perspective");
    verb.add_option("--window", pixel.m_window, "WIDTHxHEIGHT for --at-pixel (default: 1000x800)");
}

void addOptions(CLI::App& verb, MeshVerbOptions& options)
{
    verb.add_option("FILE", options.m_file, "Study (YAML), STEP assembly, STL surface or .orlo")
        ->required();
    addMeshOptions(verb, options.m_mesh);
    verb.add_option("-o,--output", options.m_outputs, "File to write: .inp, .msh or .orlo")
        ->allow_extra_args(false);
}

void addOptions(CLI::App& verb, QueryOptions& options)
{
    verb.add_option("FILE", options.m_file, "STEP, STL, .orlo, or a mesh: .inp, .msh, .bdf, .nas")
        ->required();
    verb.add_option("--entity", options.m_entity, "Number of an entity; id of an element");
    verb.add_option("--node", options.m_node, "Id of a node in a mesh");
    verb.add_option("--part", options.m_part, "Part of the element or node, where ids repeat");
    addPixelOptions(verb, options.m_pixel);
    verb.add_option("--filter", options.m_filters, "What --at-pixel may hit: Face,Edge,...")
        ->delimiter(',')
        ->allow_extra_args(false);
    addMeshOptions(verb, options.m_mesh);
    verb.add_flag("--json", options.m_json, "Print the answer as JSON");
}

void addOptions(CLI::App& verb, PickOptions& options)
{
    verb.add_option("FILE", options.m_file, "STEP, STL, .orlo, or a mesh: .inp, .msh, .bdf, .nas")
        ->required();
    verb.add_option("--filter", options.m_filters, "What may be picked: Face,Edge,...")
        ->required()
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_flag("--all", options.m_all, "Everything that the filter allows");
    verb.add_option("--at", options.m_at, "The nearest to x,y,z")
        ->delimiter(',')
        ->allow_extra_args(false);
    addPixelOptions(verb, options.m_pixel);
    verb.add_option("--within", options.m_within, "How far that may be, in mm");
    verb.add_option("--box", options.m_box, "What lies in the box of two corners x,y,z,x,y,z")
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_flag("--touching", options.m_touching, "Also what the box only touches");
    verb.add_option("--normal", options.m_normal, "Faces that look to x,y,z")
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_option("--angle", options.m_angle, "How far off they may look, in degrees");
    verb.add_option("--area", options.m_area, "Faces from the least to the greatest area, mm2")
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_option("--name", options.m_name, "Of a part or instance; of a set in a mesh");
    verb.add_option("--id", options.m_ids, "Numbers of entities; ids of elements")
        ->delimiter(',')
        ->allow_extra_args(false);
    verb.add_option("--grow", options.m_grow,
                    "Go on over neighbouring faces up to this angle, in degrees");
    verb.add_option("--limit", options.m_limit, "Lines per kind of pick (default: 20)");
    verb.add_flag("--single", options.m_single, "Allow one pick only");
}

}  // namespace vrn::orlo::app
