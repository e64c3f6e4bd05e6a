#include "odiC_Exception.h"

#include "QVRBasAtrStringMode.h"
#include "atr_translate.h"
#include "cls_ClassRegistrar.h"
#include "cls_ReadVisitor.h"
#include "cls_TypeAdapter.h"
#include "cls_WriteVisitor.h"
#include "odiC_Utils.h"

#include <cstddef>
#include <type_traits>

namespace {

/// What takes the place of a placeholder: an integer or a text of the exception, or what an integer stands for.
enum Argument { none, int1, int2, int3, int4, str1, str2, dataType1, loadProblem1, position5 };

struct Message {
    char const * format; ///< the key of the translation
    Argument arguments[6] = {};
    char const * formatWithoutFile = nullptr; ///< where there is one, it is taken when the first text is empty
};

/// Row = error number. The arguments stand in the order of the placeholders, of which "%d" takes a text as well. Hosts
/// have translated these texts as they are, misspelling included.
constexpr Message messages[] = {
    /*  0 */ {"%s is not a valid output database.", {str1}, "The file is not a valid output database."},
    /*  1 */
    {"%s cannot be read because the output database file is corrupt.\n\nThe analysis must be rerun in order to view "
     "these results.",
     {str1},
     "The file cannot be read because the output database file is corrupt.\n\nThe analysis must be rerun in order to "
     "view these results."},
    /*  2 */ {"%s contains an incomplete output database file.\n This may indicate that the analysis failed.", {str1}},
    /*  3 */
    {"%s does not match the latest format supported by this release of Ovanta.\n\nThe analysis must be rerun in order "
     "to view these results.",
     {str1},
     "The output database file format does not match the latest format supported by this release of Ovanta.\n\nThe "
     "analysis must be rerun in order to view these results."},
    /*  4 */ {"%s is not an output database file.", {str1}, "The file is not an output database file."},
    /*  5 */ {"Range Error: Number of Parts must be greater than 1"},
    /*  6 */
    {"This model contains the following element types that are not yet supported:\n %s\nThe requested process requires "
     "that all element types in the model be supported.",
     {str1}},
    /*  7 */
    {"Incorrect data for rotation field. Output dabatase may be incorrect. Requested operation cancelled. Rerun the "
     "analysis or contact VMT."},
    /*  8 */ {"%s extrapolation not supported.", {dataType1}},
    /*  9 */ {"Error detected loading set %s, subset number %d", {str1, int1}},
    /* 10 */ {"Problem detected when loading %s", {loadProblem1}},
    /* 11 */
    {"Unable to locate output request:\n Frame Index: %d\n  Part index: %d\n  Class index: %d\n  Variable: %s\n  "
     "Location index: %d\n  Output position: %s",
     {int1, int2, int3, str1, int4, position5}},
    /* 12 */ {"Data type of requested field is not tensor."},
    /* 13 */ {"Unable to access history data from output database file: %s\n  %s", {str1, str2}},
    /* 14 */ {"Subset data not loaded."},
    /* 15 */ {"Invalid step number: %d\nAvailable steps:%d", {int1, str1}},
    /* 16 */ {"Invalid step index: %d\n\nAvailable step indices: 0 - %d", {int1, int2}},
    /* 17 */ {"Invalid frame index: %d\n\nAvailable frame indices: 0 - %d", {int1, int2}},
    /* 18 */ {"Stride should be set before %s is called.", {str1}},
    /* 19 */ {"Invalid element class data."},
    /* 20 */ {"Unable to read requested result '%s' for part instance '%s'", {str1, str2}},
    /* 21 */ {"Associated data not found."},
    /* 22 */ {"%s is an invalid or unsupported ODB file format", {str1}, "Invalid or unsupported ODB file format"},
    /* 23 */ {"Error: Divide by Zero"},
    /* 24 */ {"Error: Improperly mixed operands in math operation"},
    /* 25 */ {"Value out of bounds"},
    /* 26 */ {"Tan of odd-multiple of PI/2 radians"},
    /* 27 */ {"Invalid operation - Log of Zero or a negative number"},
    /* 28 */ {"Square Root of negative number requested"},
    /* 29 */ {"Cannot raise zero to a negative number"},
    /* 30 */ {"Cannot raise a negative number to a float"},
    /* 31 */ {"Expecting Ovanta Interface Object"},
    /* 32 */ {"Expression evaluates to an overflow or underflow"},
    /* 33 */ {"The system ran out of memory"},
};

constexpr Message unknownError = {"Error message not implemented yet"};

constexpr char const * loadProblems[] = {
    "non-active class table.", "output request table.",           "history tables.", "normal tables.",
    "BC output table.",        "analytical rigid surface table.", "frame table."};

template <class Row, std::size_t size> Row const * rowOf(Row const (&rows)[size], int number) {
    return static_cast<unsigned int>(number) < size ? &rows[number] : nullptr;
}

constexpr QVRBasStringMode utf8;

constexpr cls_FieldHandle errorNoField("m_ErrorNo", 0);

} // namespace

/// Calls `visit` with each argument as a field, in the order of storing, and as a member.
template <class Visit> void odiC_Exception::forEachArgument(Visit visit) {
    visit(cls_FieldHandle("m_ArgInt1", 1), &odiC_Exception::m_ArgInt1);
    visit(cls_FieldHandle("m_ArgInt2", 2), &odiC_Exception::m_ArgInt2);
    visit(cls_FieldHandle("m_ArgInt3", 3), &odiC_Exception::m_ArgInt3);
    visit(cls_FieldHandle("m_ArgInt4", 4), &odiC_Exception::m_ArgInt4);
    visit(cls_FieldHandle("m_ArgInt5", 5), &odiC_Exception::m_ArgInt5);
    visit(cls_FieldHandle("m_ArgInt6", 6), &odiC_Exception::m_ArgInt6);
    visit(cls_FieldHandle("m_ArgStr1", 7), &odiC_Exception::m_ArgStr1);
    visit(cls_FieldHandle("m_ArgStr2", 8), &odiC_Exception::m_ArgStr2);
}

odiC_Exception::odiC_Exception(int errorNo, cow_String const & str1, cow_String const & str2, int i1, int i2, int i3,
                               int i4, int i5, int i6)
    : m_ErrorNo(errorNo), m_ArgInt1(i1), m_ArgInt2(i2), m_ArgInt3(i3), m_ArgInt4(i4), m_ArgInt5(i5), m_ArgInt6(i6),
      m_ArgStr1(str1), m_ArgStr2(str2), uid(cls_Uid::AllocateUid()) {}

odiC_Exception::odiC_Exception(cls_ReadVisitor const & reader)
    : nex_CommandException(cls_ReadVisitor(reader, nex_CommandException::TypeId())) {
    reader.StartRead(TypeId());
    m_ErrorNo = reader.ReadEnumAsInt(errorNoField);
    forEachArgument([&](cls_FieldHandle const & field, auto member) {
        using Value = std::decay_t<decltype(this->*member)>;
        this->*member = reader.Read(field, Value());
    });
    uid = reader.GetUid();
}

odiC_Exception::~odiC_Exception() = default;

void odiC_Exception::Propagate() const {
    throw *this;
}

QVRBasException * odiC_Exception::Clone() const {
    return new odiC_Exception(*this);
}

nex_Exception * odiC_Exception::Copy() const {
    return new odiC_Exception(*this);
}

unsigned int odiC_Exception::DynTypeId() const {
    return TypeId();
}

void odiC_Exception::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    nex_CommandException::DBWrite(cls_WriteVisitor(writer, nex_CommandException::TypeId()));
    writer.WriteEnumAsInt(errorNoField, m_ErrorNo);
    forEachArgument([&](cls_FieldHandle const & field, auto member) { writer.Write(field, this->*member); });
}

void odiC_Exception::InitializeMetadata(cls_ClassRegistrar & registrar) {
    auto * const metadata =
        new cls_TypeAdapter<odiC_Exception>("odiC_Exception", TypeId(), 800, nullptr, nex_CommandException::TypeId());
    registrar.AddClassMD(metadata);
    metadata->AddAttribute(errorNoField, cls_AttributeType_INT, 1, 0);
    forEachArgument([&](cls_FieldHandle const & field, auto member) {
        constexpr bool isText = std::is_same_v<decltype(member), cow_String odiC_Exception::*>;
        metadata->AddAttribute(field, isText ? cls_AttributeType_STRING : cls_AttributeType_INT, 1, 0);
    });
}

cow_String odiC_Exception::PythonType() const {
    return "OdiError";
}

atr_String odiC_Exception::JournalMessage(QVRBasStringMode mode) const {
    Message const * const known = rowOf(messages, m_ErrorNo);
    Message const & message = known != nullptr ? *known : unknownError;
    bool const isWithoutFile = message.formatWithoutFile != nullptr && m_ArgStr1.Empty();
    atr_translate text(isWithoutFile ? message.formatWithoutFile : message.format, utf8);
    int position = 0;
    auto const put = [&](auto const & value) { atr_SubstituteFormat(text, position, value, utf8); };
    for (Argument const argument : message.arguments) {
        ++position;
        switch (argument) {
        case none: break;
        case int1: put(m_ArgInt1); break;
        case int2: put(m_ArgInt2); break;
        case int3: put(m_ArgInt3); break;
        case int4: put(m_ArgInt4); break;
        case str1: put(m_ArgStr1); break;
        case str2: put(m_ArgStr2); break;
        case dataType1: put(res_DataTypeEnm2String(static_cast<res_DataTypeEnm>(m_ArgInt1))); break;
        case loadProblem1: put(LoadProbCode2Str(m_ArgInt1)); break;
        case position5:
            put(odiC_Utils::ConvertOutputPosition(static_cast<res_OutputPositionEnm>(m_ArgInt5), utf8));
            break;
        }
    }
    return QVRBasAtrStringMode::Utf8ToModal(text.Result(utf8), mode);
}

cow_String odiC_Exception::LoadProbCode2Str(int code) {
    char const * const * const text = rowOf(loadProblems, code);
    return text != nullptr ? *text : "Unknown";
}

cow_String odiC_Exception::res_DataTypeEnm2String(res_DataTypeEnm type) {
    switch (type) {
    case res_DataType_BOOLEAN: return "Boolean";
    case res_DataType_INTEGER: return "Integer";
    case res_DataType_SCALAR: return "Scalar";
    case res_DataType_VECTOR: return "Vector";
    case res_DataType_QUATERNION_2D:
    case res_DataType_QUATERNION_3D: return "Quaternion";
    default: return odiC_Utils::IsTensor(type) ? "Tensor" : "Unknown";
    }
}
