// describe_results
//
// What an output database offers and what a user picks from it: describes the stress of a shell at three section points
// of each of its two plies, its displacement, and a contact pressure; selects the Mises stress at the upper face of the
// second ply; prints all of them; packs them into tuples, which travel between processes, and reads them back.
//
// Exit status: 0; 1 if something failed; 2 if there are arguments.

#include <QVRShpCore.h>

#include <cstdio>
#include <exception>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

/// A description without clamps. Invariants, components and section points are added to it.
odiC_VariableDesc describe(char const * label, char const * text, res_OutputPositionEnm position,
                           res_DataTypeEnm type) {
    using Clamp = std::numeric_limits<float>;
    omu_PrimEnum<res_OutputPositionEnm, 1> const positionName(position);
    omu_PrimEnum<res_DataTypeEnm, 1> const typeName(type);
    return odiC_VariableDesc(label, text, position, atr_String(positionName.GetString()), type, typeName.GetString(),
                             res_StorageType_FLOAT, false, Clamp::lowest(), Clamp::max(), QVRBasStringMode());
}

odiC_VariableDesc describeStress() {
    odiC_VariableDesc stress =
        describe("S", "Stress components", res_OutputPosition_INTEGRATION_POINT, res_DataType_TENSOR_3D_PLANAR);
    stress.AddInvariant("Mises", res_Invariant_MISES);
    stress.AddInvariant("Max. In-Plane Principal", res_Invariant_MAXIMUM_IN_PLANE_PRINCIPAL);
    stress.AddComponent("S11", 1);
    stress.AddComponent("S22", 2);
    stress.AddComponent("S33", 3);
    stress.AddComponent("S12", 4);
    // Three points through the thickness of each ply, numbered through the section; both faces may be shown at once.
    unsigned int number = 0;
    for (char const * ply : {"PLY-1", "PLY-2"})
        for (char const * point : {"lower", "middle", "upper"})
            stress.AddSection(ply, point, ++number, true, std::string(point) == "upper");
    return stress;
}

odiC_VariableDesc describeDisplacement() {
    odiC_VariableDesc displacement =
        describe("U", "Spatial displacement", res_OutputPosition_NODAL, res_DataType_VECTOR);
    displacement.AddInvariant("Magnitude", res_Invariant_MAGNITUDE);
    displacement.AddComponent("U1", 1);
    displacement.AddComponent("U2", 2);
    displacement.AddComponent("U3", 3);
    return displacement;
}

odiC_VariableDesc describeContactPressure() {
    odiC_VariableDesc pressure =
        describe("CPRESS", "Contact pressure", res_OutputPosition_SURFACE_NODAL, res_DataType_SCALAR);
    pressure.SetSurfaceVariable(true);
    return pressure;
}

/// Mises stress at the upper face of the second ply.
odiC_VariableSelection selectMises(odiC_VariableDesc const & stress) {
    odiC_VariableSelection selection(stress, calC_VariableRefinementType_INVARIANT, "Mises", res_Invariant_MISES,
                                     false);
    odiC_CategoryDesc const & ply = stress.CategoryMap().ConstGet("PLY-2");
    int const number = 1; // among the categories, from 0
    odiC_CategorySpec const upper(number, ply.CategoryLabel(), false, ply["upper"], ply["upper"], "upper", "upper");
    selection.CopyCategorySpec(&upper, stress.CategoryMap().Size());
    return selection;
}

void printTitle(cow_String const & title) {
    static char const * separator = "";
    std::printf("%s-- %s --\n", separator, title.CStr());
    separator = "\n";
}

/// Prints a packed form, broken between elements where a line would pass column 80.
void printPacked(omu_PrimTuple const & tuple) {
    std::string rest = tuple.AsRepr().CStr();
    for (char const * indent = ""; !rest.empty(); indent = "    ") {
        std::size_t const comma = rest.size() > 76 ? rest.rfind(", ", 75) : rest.npos;
        std::size_t const end = comma == rest.npos ? rest.size() : comma + 1;
        std::printf("%s%s\n", indent, rest.substr(0, end).c_str());
        rest.erase(0, end + 1);
    }
}

void report(cow_String const & label, bool isEqual) {
    if (!isEqual)
        throw std::runtime_error(std::string(label.CStr()) + " is not what was packed.");
    std::printf("%-6s  as it was packed\n", label.CStr());
}

void run() {
    cow_List<odiC_VariableDesc> const variables(describeStress(), describeDisplacement(), describeContactPressure());
    odiC_VariableSelection const selection = selectMises(variables[0]);
    for (int i = 0; i < variables.Length(); ++i) {
        printTitle(variables[i].Description());
        std::printf("%s", variables[i].Print().CStr());
    }
    printTitle("Selected");
    std::printf("%s", selection.Print().CStr());

    QVRBasStringMode const utf8;
    omu_PrimTuple packed('(');
    printTitle("Packed");
    for (int i = 0; i < variables.Length(); ++i) {
        omu_PrimTuple * const tuple = variables[i].PackTuple(utf8);
        packed.Put(tuple); // and `packed` is its owner
        printPacked(*tuple);
    }
    omu_PrimTuple * const tuple = selection.PackTuple();
    packed.Put(tuple);
    printPacked(*tuple);

    printTitle("Unpacked");
    omu_PrimTuple element('(');
    packed.Begin();
    for (int i = 0; i < variables.Length(); ++i) {
        packed.Get(element);
        odiC_VariableDesc const unpacked = odiC_VariableDesc::UnpackTuple(element, utf8);
        report(unpacked.VariableLabel(), unpacked == variables[i]);
    }
    packed.Get(element);
    report(selection.RefinementLabel(), odiC_VariableSelection::UnpackTuple(element) == selection);
    packed.End("the results");
}

} // namespace

int main(int argc, char **) {
    if (argc > 1) {
        std::fprintf(stderr, "usage: describe_results, without arguments\n");
        return 2;
    }
    try {
        run();
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
            throw std::runtime_error("standard output does not take the text.");
        return 0;
    } catch (QVRBasException const & failure) {
        std::fprintf(stderr, "describe_results: %s\n", failure.AsString(QVRBasStringMode()).CStr());
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "describe_results: %s\n", failure.what());
    }
    return 1;
}
