// The text reports of the whole catalogue. Their text is a format, read by scripts and compared with files.

#include "aio_ostream.h"
#include "omi_BtreeIterator.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

namespace {

constexpr int labelWidth = 18;

constexpr char const * descriptorHeading[] = {
    "------------------",
    "Shape descriptors:",
    "------------------",
    "Column  1: Version 5 Type",
    "Column  2: Number of geometry dimensions",
    "Column  3: Number of spatial dimensions",
    "Column  4: Number of nodes per element",
    "Column  5: Number of integration points per element",
    "Column  6: Number of faces per element",
    "Column  7: Maximum edges per face",
    "Column  8: Maximum nodes per face",
    "Column  9: Maximum nodes per edge",
    "Column 10: Maximum integration points per face",
    "Column 11: isAxiSymmetric flag",
    "Column 12: isInteraction flag",
    "Column 13: isInternal flag",
    "Column 14: isSurface flag",
    "Column 15: isRigid flag",
    "Column 16: hasResults flag",
    "Column 17: isSweepable flag",
    "Column 18: isExtrudable flag",
    "Column 19: isAnalyticalRigidSurface flag",
    "Column 20: interpOrder",
    "Column 21: isTwistedElement flag",
    "Column 22: isCaxaElement flag",
    // A row has one column more, isUnassigned73, which stands here: the next two are columns 24 and 25. Readers of
    // stored tables know the columns by these lines, so they stay.
    "Column 23: isFluidpipeThermal flag",
    "Column 24: isFluidpipeAnnulusThermal flag",
    "---------------------------------------------------",
};

constexpr char const * connectivityHeading[] = {
    "-------------------------------",
    "   Shape Connectivity Tables:",
    "-------------------------------",
};

constexpr char const * weightHeading[] = {
    "-------------------------------",
    "   Shape Weight Tables:",
    "-------------------------------",
};

constexpr char const * inverseHeading[] = {
    "-------------------------------",
    "Shape Inverse Topology Tables:",
    "-------------------------------",
};

constexpr char const * scriptHead[] = {
    "# A mapping of element label to the number of nodes",
    "#******************************************************************",
    "#****                                                          ****",
    "#****DO NOT HAND EDIT GENERATED USING                          ****",
    "#****znb -test module/shp/test/impl/shpT_UpgradeTest           ****",
    "#****                                                          ****",
    "#******************************************************************",
    "#",
    "def shp_GenerateShapeMap():",
    "    shapeMap = {}",
};

constexpr char const * scriptTail[] = {
    "# unsupported elements",
    "    shapeMap[\"unsupported\"] = 0",
    "    return shapeMap",
    "shp_NodesPerElement = shp_GenerateShapeMap()",
};

template <int count> void writeLines(aio_ostream & stream, char const * const (&lines)[count]) {
    for (char const * line : lines)
        stream << line << aio_endl;
}

void adjustLeft(aio_ostream & stream) {
    stream.setf(aio_iosFlag_LEFT, aio_iosFlag_ADJUST);
}

void adjustRight(aio_ostream & stream) {
    stream.setf(aio_iosFlag_RIGHT, aio_iosFlag_ADJUST);
}

/// Calls `visit(label, shape)` in ascending label order, with a null shape where there is none.
template <class Visit> void forEachLabel(shp_ShapeDictionary const & dictionary, Visit visit) {
    omi_BtreeIterator<cow_String, void *> entries(dictionary.Keys());
    for (bool isEntry = entries.First(); isEntry; isEntry = entries.Next())
        visit(entries.CurrentKey(), dictionary.GetShape(entries.CurrentKey()));
}

/// The width holds for the dashes: labels begin in one column.
void writeLabelBetweenDashes(aio_ostream & stream, cow_String const & label) {
    adjustRight(stream);
    stream << aio_setwidth(labelWidth) << "---- " << label << " ----" << aio_endl;
    adjustLeft(stream);
}

void writeDescriptors(aio_ostream & stream, shp_ShapeDictionary const & dictionary) {
    writeLines(stream, descriptorHeading);
    forEachLabel(dictionary, [&](cow_String const & label, shp_Shape const * shape) {
        adjustRight(stream);
        stream << aio_setwidth(labelWidth) << label << " ";
        if (shape)
            shape->PrintMembersInTable(stream);
    });
}

void writeConnectivity(aio_ostream & stream, shp_ShapeDictionary const & dictionary) {
    writeLines(stream, connectivityHeading);
    forEachLabel(dictionary, [&](cow_String const & label, shp_Shape const * shape) {
        writeLabelBetweenDashes(stream, label);
        if (shape)
            shape->PrintConnectivityTable(stream);
    });
}

void writeWeights(aio_ostream & stream, shp_ShapeDictionary const & dictionary) {
    writeLines(stream, weightHeading);
    forEachLabel(dictionary, [&](cow_String const & label, shp_Shape const * shape) {
        writeLabelBetweenDashes(stream, label);
        if (shape)
            shape->PrintWeightsInTable(stream);
    });
}

void writeInverseTables(aio_ostream & stream, shp_ShapeDictionary const & dictionary) {
    writeLines(stream, inverseHeading);
    forEachLabel(dictionary, [&](cow_String const & label, shp_Shape const * shape) {
        adjustRight(stream);
        stream << aio_setwidth(labelWidth) << label << aio_endl;
        adjustLeft(stream);
        if (shape)
            shape->PrintInverseTable(stream);
    });
}

} // namespace

void shp_ShapeDictionary::PrintShape(aio_ostream & stream) const {
    forEachLabel(*this, [&](cow_String const & label, shp_Shape const * shape) {
        stream << "Version 5 Type: " << label << aio_endl;
        if (shape)
            shape->PrintMembers(stream);
    });
}

void shp_ShapeDictionary::PrintShapeTable(aio_ostream & stream) const {
    writeDescriptors(stream, *this);
    writeConnectivity(stream, *this);
    writeWeights(stream, *this);
    writeInverseTables(stream, *this);
}

void shp_ShapeDictionary::PrintLabelToNodecountTable(aio_ostream & stream) const {
    writeLines(stream, scriptHead);
    int numNodes = 0; // a label without a shape gets the count before it
    forEachLabel(*this, [&](cow_String const & label, shp_Shape const * shape) {
        if (shape)
            numNodes = shape->NumNodesPerElem();
        adjustLeft(stream);
        stream << "    shapeMap[\"" << label << "\"] = " << numNodes << aio_endl;
    });
    writeLines(stream, scriptTail);
}
