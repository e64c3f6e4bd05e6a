#include "constant_tables.h"

#include "shp_Catalogue.h"

#include <sys/mman.h>

#include <cxxabi.h>
#include <elf.h>
#include <link.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

namespace {

using Kind = TableEntry::Kind;

bool contains(std::string const & text, char const * part) {
    return text.find(part) != std::string::npos;
}

/// Where the program's addresses of its own symbols begin.
std::uintptr_t loadAddress() {
    std::uintptr_t address = 0;
    auto const first = [](dl_phdr_info * info, std::size_t, void * out) {
        *static_cast<std::uintptr_t *>(out) = info->dlpi_addr;
        return 1;
    };
    dl_iterate_phdr(first, &address);
    return address;
}

/// The name without the namespace, as a person would look for it.
std::string plainName(char const * symbol) {
    int status = 0;
    char * const text = abi::__cxa_demangle(symbol, nullptr, nullptr, &status);
    std::string name = status == 0 ? text : symbol;
    std::free(text);
    return name.substr(name.rfind(':') == std::string::npos ? 0 : name.rfind(':') + 1);
}

/// What the entries of a table are goes by the source that it stands in; a table of a header, which belongs to no
/// source, is one of locations or weights.
bool isReal(std::string const & file) {
    return contains(file, "Locations") || contains(file, "Weights") || file == "header";
}
bool isInteger(std::string const & file) {
    return contains(file, "ConnectivityTables") || contains(file, "FaceTangents") || contains(file, "Options") ||
           contains(file, "Topology") || file == "shp_Interpolation.cpp" || file == "shp_ShapeDictionary.cpp";
}

/// Conditions come first in the rows of a decision list, and are left to those who change decisions.
constexpr std::size_t conditionBytes = 29 * sizeof(int);
std::map<std::string, std::size_t> const rowBytes = {{"shapeNumbers", conditionBytes + 8 * sizeof(int)},
                                                     {"edgeCounts", conditionBytes + sizeof(int)},
                                                     {"facePointCounts", conditionBytes + sizeof(int)},
                                                     {"orders", conditionBytes + sizeof(int)},
                                                     {"nodeMaps", conditionBytes + 30 * sizeof(int)}};

/// Two flags among the integers that say which nodes make a tangent.
bool isTangentFlag(ConstantTable const & table, std::size_t index) {
    return table.file == "shp_FaceTangents.cpp" && (index == 5 || index == 10);
}

ConstantTable tableAt(std::string const & file, std::string const & name, char * address, std::size_t size) {
    ConstantTable table{file, name, {}};
    auto const row = rowBytes.find(name);
    for (std::size_t at = 0; at + 4 <= size; at += 4) {
        if (row != rowBytes.end() && at % row->second < conditionBytes)
            continue;
        Kind const kind = isReal(file) ? Kind::real : isTangentFlag(table, at / 4) ? Kind::flag : Kind::integer;
        table.entries.push_back({address + at, kind});
    }
    if (row != rowBytes.end() && size % row->second != 0)
        throw std::logic_error(name + " has rows of another size");
    return table;
}

/// The keys of the catalogue, by the header that declares them: they stand beside texts.
ConstantTable catalogueKeys() {
    ConstantTable table{"shp_Catalogue.cpp", "keys", {}};
    for (shp_CatalogueEntries const family :
         {shp_catalogueARS, shp_cataloguePoint, shp_catalogueLine, shp_catalogueTri, shp_catalogueQuad,
          shp_catalogueTetra, shp_cataloguePyr, shp_cataloguePrism, shp_catalogueHex})
        for (shp_CatalogueEntry const & entry : family)
            for (unsigned int bit = 0; bit < LongKey::numBits; ++bit)
                if (entry.key.hasBit(bit))
                    table.entries.push_back({const_cast<LongKey *>(&entry.key), Kind::key, bit});
    return table;
}

} // namespace

bool TableEntry::change() const {
    auto const page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    auto const start = reinterpret_cast<std::uintptr_t>(address) / page * page;
    if (mprotect(reinterpret_cast<void *>(start), page, PROT_READ | PROT_WRITE) != 0)
        throw std::runtime_error("the page of a table cannot be written");
    if (kind == Kind::real) {
        float number;
        std::memcpy(&number, address, sizeof number);
        float const changed = number + 1e-3f;
        std::memcpy(address, &changed, sizeof changed);
        return changed != number;
    }
    if (kind == Kind::key) {
        auto * const bytes = static_cast<unsigned char *>(address);
        bytes[bit / 8] &= static_cast<unsigned char>(~(1u << bit % 8));
        bytes[(bit + 1) / 8] |= static_cast<unsigned char>(1u << (bit + 1) % 8);
        return true;
    }
    int number;
    std::memcpy(&number, address, sizeof number);
    number = kind == Kind::flag ? number ^ 1 : number + 1;
    std::memcpy(address, &number, sizeof number);
    return true;
}

std::vector<ConstantTable> constantTables() {
    std::ifstream file("/proc/self/exe", std::ios::binary);
    std::vector<char> const image{std::istreambuf_iterator<char>(file), {}};
    auto const * const header = reinterpret_cast<Elf64_Ehdr const *>(image.data());
    auto const * const sections = reinterpret_cast<Elf64_Shdr const *>(image.data() + header->e_shoff);
    char const * const sectionNames = image.data() + sections[header->e_shstrndx].sh_offset;
    std::uintptr_t const base = loadAddress();

    std::vector<ConstantTable> tables;
    for (int i = 0; i < header->e_shnum; ++i) {
        if (sections[i].sh_type != SHT_SYMTAB)
            continue;
        auto const * const symbols = reinterpret_cast<Elf64_Sym const *>(image.data() + sections[i].sh_offset);
        char const * const names = image.data() + sections[sections[i].sh_link].sh_offset;
        std::string source;
        for (std::size_t s = 0; s < sections[i].sh_size / sizeof(Elf64_Sym); ++s) {
            Elf64_Sym const & symbol = symbols[s];
            char const * const name = names + symbol.st_name;
            if (ELF64_ST_TYPE(symbol.st_info) == STT_FILE)
                source = name;
            if (ELF64_ST_TYPE(symbol.st_info) != STT_OBJECT || symbol.st_shndx >= header->e_shnum)
                continue;
            std::string const section = sectionNames + sections[symbol.st_shndx].sh_name;
            bool const isLocal = ELF64_ST_BIND(symbol.st_info) == STB_LOCAL;
            std::string const origin = isLocal ? source : "header";
            // Variables of namespaces are not decorated; what else is global here are names of sets, and of types.
            bool const isTable =
                isLocal ? source.starts_with("shp_") && !contains(source, "_test")
                        : std::string(name).starts_with("shp_") || contains(name, "Locs") || contains(name, "IntPts");
            bool const isConstant = section == ".rodata" || (section == ".data" && isReal(origin) && isLocal);
            if (isTable && isConstant && (isReal(origin) || isInteger(origin)))
                tables.push_back(
                    tableAt(origin, plainName(name), reinterpret_cast<char *>(base + symbol.st_value), symbol.st_size));
        }
    }
    tables.push_back(catalogueKeys());
    return tables;
}
