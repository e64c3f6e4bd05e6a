#include "vtu_writer.h"

#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

/// Numbers separated by blanks, in lines.
class NumberStream {
public:
    explicit NumberStream(std::ostream & stream) : out(stream) {}

    template <class Number> NumberStream & operator<<(Number number) {
        char text[32];
        char * const end = std::to_chars(text, text + sizeof text - 1, number).ptr;
        *end = ' ';
        out.write(text, end + 1 - text);
        return *this;
    }
    void endLine() { out.put('\n'); }

private:
    std::ostream & out;
};

template <class WriteRows> void writeArray(std::ostream & out, std::string const & attributes, WriteRows writeRows) {
    out << "        <DataArray " << attributes << " format=\"ascii\">\n";
    NumberStream numbers(out);
    writeRows(numbers);
    out << "        </DataArray>\n";
}

void writePoints(std::ostream & out, Mesh const & mesh) {
    writeArray(out, R"(type="Float32" Name="position" NumberOfComponents="3")", [&](NumberStream & numbers) {
        for (int node = 0; node < mesh.numNodes; ++node) {
            float x, y, z;
            mesh.coords.GetCoord(node, x, y, z);
            numbers << x << y << z;
            numbers.endLine();
        }
    });
}

void writeCells(std::ostream & out, Mesh const & mesh, VtuCell const & cell) {
    writeArray(out, R"(type="Int64" Name="connectivity")", [&](NumberStream & numbers) {
        for (int e = 0; e < mesh.numElements(); ++e) {
            for (int node : cell.fromLibrary)
                numbers << mesh.element(e)[node];
            numbers.endLine();
        }
    });
    writeArray(out, R"(type="Int64" Name="offsets")", [&](NumberStream & numbers) {
        for (int e = 1; e <= mesh.numElements(); ++e)
            numbers << static_cast<long long>(e) * mesh.nodesPerElement;
        numbers.endLine();
    });
    writeArray(out, R"(type="UInt8" Name="types")", [&](NumberStream & numbers) {
        for (int e = 0; e < mesh.numElements(); ++e)
            numbers << cell.type;
        numbers.endLine();
    });
}

void writeTensors(std::ostream & out, char const * name, std::vector<Stress> const & tensors) {
    writeArray(out,
               std::string(R"(type="Float32" Name=")") + name +
                   R"(" NumberOfComponents="6" ComponentName0="XX" ComponentName1="YY" ComponentName2="ZZ")"
                   R"( ComponentName3="XY" ComponentName4="YZ" ComponentName5="XZ")",
               [&](NumberStream & numbers) {
                   for (Stress const & tensor : tensors) {
                       for (double component : tensor)
                           numbers << static_cast<float>(component);
                       numbers.endLine();
                   }
               });
}

void writePointData(std::ostream & out, NodalStress const & result) {
    writeTensors(out, "stress", result.stress);
    writeTensors(out, "stress_error", result.error);
    writeArray(out, R"(type="Float32" Name="stress_error_norm")", [&](NumberStream & numbers) {
        for (double norm : result.errorNorm)
            numbers << static_cast<float>(norm);
        numbers.endLine();
    });
}

} // namespace

void writeVtu(char const * path, Mesh const & mesh, VtuCell const & cell, NodalStress const & result) {
    std::ofstream out(path);
    out << "<?xml version=\"1.0\"?>\n"
           "<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\">\n"
           "  <UnstructuredGrid>\n    <Piece NumberOfPoints=\""
        << mesh.numNodes << "\" NumberOfCells=\"" << mesh.numElements() << "\">\n      <Points>\n";
    writePoints(out, mesh);
    out << "      </Points>\n      <Cells>\n";
    writeCells(out, mesh, cell);
    out << "      </Cells>\n      <PointData Tensors=\"stress\" Scalars=\"stress_error_norm\">\n";
    writePointData(out, result);
    out << "      </PointData>\n    </Piece>\n  </UnstructuredGrid>\n</VTKFile>\n";
    out.close();
    if (!out)
        throw std::runtime_error(std::string("cannot write ") + path);
}
