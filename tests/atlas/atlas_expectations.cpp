// Prints what the atlas must show of every label, as JSON: read from the library by its public operations, with nothing
// of the atlas' own code.

#include <omi_BtreeIterator.h>
#include <shp_Shape.h>
#include <shp_ShapeDictionary.h>

#include <cstdio>
#include <numeric>
#include <vector>

namespace {

template <class Value, class Print> void printList(char const * name, std::vector<Value> const & list, Print print) {
    std::printf("\"%s\":[", name);
    for (std::size_t i = 0; i < list.size(); ++i) {
        std::printf("%s", i ? "," : "");
        print(list[i]);
    }
    std::printf("]");
}

void printTable(char const * name, float const * values, int rows, int columns) {
    std::vector<float const *> starts;
    for (int row = 0; row < rows && values; ++row)
        starts.push_back(values + row * columns);
    printList(name, starts, [columns](float const * row) {
        for (int i = 0; i < columns; ++i)
            std::printf("%s%.9g", i ? "," : "[", double(row[i]));
        std::printf("]");
    });
    std::printf(",");
}

void printShape(shp_Shape const & shape) {
    std::vector<int> identity(static_cast<std::size_t>(shape.NumNodesPerElem()));
    std::iota(identity.begin(), identity.end(), 0);
    std::vector<std::vector<int>> faces;
    for (int face = 0; face < shape.NumFacesPerElem(); ++face) {
        faces.emplace_back(static_cast<std::size_t>(shape.NumNodesPerFace(face)));
        shape.FaceConnectivity(identity.data(), face, faces.back().data());
        faces.back().resize(static_cast<std::size_t>(shape.BaseNodesPerFace(face)));
    }
    int const planes = shape.isCaxaElement ? shape.numNodesPerElem / shape.baseNodesPerElem : 1;
    int const pointPlanes = shape.isCaxaElement ? shape.numIntPtsPerElem / shape.baseIntPtsPerElem : 1;
    std::printf("\"%s\":{\"dimensions\":%d,\"nodes\":%d,\"points\":%d,\"planes\":%d,\"pointPlanes\":%d,"
                "\"cylindrical\":%s,\"inSpace\":%s,",
                shape.label.CStr(), shape.NumGeometryDimensions(), shape.numNodesPerElem, shape.numIntPtsPerElem,
                planes, pointPlanes, shape.isCylindrical ? "true" : "false",
                shape.NumSpatialDimensions() == 3 ? "true" : "false");
    printTable("nodeLocations", shape.IsoNodeLocationTable(), shape.BaseNodesPerElem(), 3);
    printTable("pointLocations", shape.intPtLocationTable, shape.BaseIntPtsPerElem(), 3);
    printTable("faceCentres", shape.faceCenterLocationTable, shape.NumFacesPerElem(), 3);
    printTable("nodeWeights", shape.nodeWeights, shape.BaseNodesPerElem(), shape.BaseIntPtsPerElem());
    printTable("faceWeights", shape.faceWeights, shape.NumFacesPerElem(), shape.BaseIntPtsPerElem());
    printList("faces", faces, [](std::vector<int> const & nodes) {
        for (std::size_t i = 0; i < nodes.size(); ++i)
            std::printf("%s%d", i ? "," : "[", nodes[i]);
        std::printf("]");
    });
    std::printf("}");
}

} // namespace

int main() {
    shp_ShapeDictionary const & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> labels(dictionary.Keys());
    char const * before = "{\n";
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        std::printf("%s", before);
        printShape(*dictionary.GetShape(labels.CurrentKey()));
        before = ",\n";
    }
    std::printf("\n}\n");
}
