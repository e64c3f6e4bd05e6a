#include "cut_report.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

double exactEquivalent(Cylinder const & cylinder, Model model, g3d_Storage const & point) {
    return equivalentStress(exactStress(cylinder, model, point.X(), point.Y()));
}

void writeHit(std::ostream & out, Hit const & hit) {
    out << ',' << hit.parameter << ',' << hit.point.X() << ',' << hit.point.Y() << ',' << hit.point.Z();
    for (double component : hit.stress)
        out << ',' << component;
}

} // namespace

void printCut(Cylinder const & cylinder, Model model, Fan const & fan,
              std::vector<std::vector<Crossing>> const & paths) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
        Line const line = fan.line(i);
        double const length = line.length();
        double inElements = 0;
        for (Crossing const & crossing : paths[i])
            inElements += (crossing.exit.parameter - crossing.entry.parameter) * length;
        std::printf("\nLine %zu, at %g degrees: %zu elements, %.5f long in them; exactly %.5f in the wall.\n", i + 1,
                    fan.directions[i], paths[i].size(), inElements, lengthInWall(cylinder, model, line));
        std::printf("%9s %9s %9s %9s %20s %20s\n", "", "", "", "", "stress at entry", "stress at exit");
        std::printf("%9s %9s %9s %9s %10s %9s %10s %9s\n", "element", "entry", "exit", "length", "nodes", "exact",
                    "nodes", "exact");
        for (Crossing const & crossing : paths[i]) {
            double const entry = crossing.entry.parameter * length;
            double const exit = crossing.exit.parameter * length;
            std::printf("%9d %9.5f %9.5f %9.5f %10.3f %9.3f %10.3f %9.3f\n", crossing.element, entry, exit,
                        exit - entry, equivalentStress(crossing.entry.stress),
                        exactEquivalent(cylinder, model, crossing.entry.point), equivalentStress(crossing.exit.stress),
                        exactEquivalent(cylinder, model, crossing.exit.point));
        }
    }
}

void writeCsv(char const * path, Fan const & fan, std::vector<std::vector<Crossing>> const & paths) {
    std::ofstream out(path);
    out.precision(9);
    out << "line,direction,element";
    for (char const * end : {"entry", "exit"})
        for (char const * column : {"parameter", "x", "y", "z", "xx", "yy", "zz", "xy", "yz", "xz"})
            out << ',' << end << '_' << column;
    out << '\n';
    for (std::size_t i = 0; i < paths.size(); ++i)
        for (Crossing const & crossing : paths[i]) {
            out << i + 1 << ',' << fan.directions[i] << ',' << crossing.element;
            writeHit(out, crossing.entry);
            writeHit(out, crossing.exit);
            out << '\n';
        }
    out.close();
    if (!out)
        throw std::runtime_error(std::string("cannot write ") + path);
}
