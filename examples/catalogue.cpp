// catalogue shapes | table | script
// catalogue members | row | connectivity | weights | inverse LABEL...
//
// Prints a text report to standard output: of the whole catalogue, or of the labels that are named.
//
// Exit status: 0; 1 if something failed; 2 if the arguments are at fault, and then nothing is printed.

#include <QVRBasException.h>
#include <aio_ostream.h>
#include <shp_Shape.h>
#include <shp_ShapeDictionary.h>

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct CatalogueReport {
    std::string_view name;
    void (shp_ShapeDictionary::*print)(aio_ostream &) const;
};

constexpr CatalogueReport catalogueReports[] = {
    {"shapes", &shp_ShapeDictionary::PrintShape},
    {"table", &shp_ShapeDictionary::PrintShapeTable},
    {"script", &shp_ShapeDictionary::PrintLabelToNodecountTable},
};

struct ShapeReport {
    std::string_view name;
    void (shp_Shape::*print)(aio_ostream &) const;
};

constexpr ShapeReport shapeReports[] = {
    {"members", &shp_Shape::PrintMembers},
    {"row", &shp_Shape::PrintMembersInTable},
    {"connectivity", &shp_Shape::PrintConnectivityTable},
    {"weights", &shp_Shape::PrintWeightsInTable},
    {"inverse", &shp_Shape::PrintInverseTable},
};

template <class Report, std::size_t count>
Report const * findReport(Report const (&reports)[count], std::string_view name) {
    for (Report const & report : reports)
        if (report.name == name)
            return &report;
    return nullptr;
}

int refuse(std::string const & sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 2;
}

int printCatalogue(CatalogueReport const & report, std::vector<std::string> const & labels) {
    if (!labels.empty())
        return refuse("The report \"" + std::string(report.name) + "\" is of the whole catalogue and takes no label.");
    aio_ostream stream(std::cout);
    (omi_Singleton<shp_ShapeDictionary>::Instance().*report.print)(stream);
    return 0;
}

int printShapes(ShapeReport const & report, std::vector<std::string> const & labels) {
    if (labels.empty())
        return refuse("The report \"" + std::string(report.name) + "\" needs at least one label.");
    std::vector<shp_Shape const *> shapes;
    for (std::string const & label : labels) {
        shapes.push_back(omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label.c_str()));
        if (!shapes.back())
            return refuse("\"" + label + "\" is not a label of the element catalogue.");
    }
    aio_ostream stream(std::cout);
    for (shp_Shape const * shape : shapes)
        (shape->*report.print)(stream);
    return 0;
}

int run(std::string const & report, std::vector<std::string> const & labels) {
    if (auto const * ofCatalogue = findReport(catalogueReports, report))
        return printCatalogue(*ofCatalogue, labels);
    if (auto const * ofShape = findReport(shapeReports, report))
        return printShapes(*ofShape, labels);
    return refuse("There is no report \"" + report +
                  "\"; of the whole catalogue there are shapes, table and script, of labels members, row, "
                  "connectivity, weights and inverse.");
}

} // namespace

int main(int argc, char ** argv) {
    if (argc < 2)
        return refuse("usage: catalogue shapes|table|script, or catalogue "
                      "members|row|connectivity|weights|inverse LABEL...");
    try {
        int const status = run(argv[1], {argv + 2, argv + argc});
        if (!std::cout.flush()) {
            std::fprintf(stderr, "catalogue: standard output does not take the report.\n");
            return 1;
        }
        return status;
    } catch (QVRBasException const & failure) {
        std::fprintf(stderr, "catalogue: %s\n", failure.AsString(QVRBasStringMode()).CStr());
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "catalogue: %s\n", failure.what());
    }
    return 1;
}
