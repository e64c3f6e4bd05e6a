#ifndef odiC_Exception_h
#define odiC_Exception_h

#include "nex_CommandException.h"
#include "res_DataTypeEnm.h"

class cls_ClassRegistrar;

/// The exception of the output database: an error number with its arguments. The message is made when it is asked for,
/// in the language and the encoding of that moment, so that the exception can be copied, stored, read back elsewhere,
/// and still be understood where it is shown. Scripts know it as "OdiError".
class QVRSHPCORE_API odiC_Exception : public nex_CommandException {
public:
    /// Which arguments a message shows depends on the number; the others are carried along. A number without a message
    /// of its own, 34 or -1, is no mistake: a common text stands for it. The texts are in UTF-8. The object gets a uid
    /// of its own, which its copies keep; making one is therefore not safe for concurrent use.
    explicit odiC_Exception(int errorNo, cow_String const & str1 = "", cow_String const & str2 = "", int i1 = 0,
                            int i2 = 0, int i3 = 0, int i4 = 0, int i5 = 0, int i6 = 0);
    /// What DBWrite has written, uid included. What a record lacks is 0 or empty.
    explicit odiC_Exception(cls_ReadVisitor const & reader);
    odiC_Exception(odiC_Exception const &) noexcept = default;
    odiC_Exception & operator=(odiC_Exception const &) noexcept = default;
    ~odiC_Exception() override;

    [[noreturn]] void Propagate() const override;
    QVRBasException * Clone() const override;
    nex_Exception * Copy() const override;

    static unsigned int TypeId() { return 0x2a40001; }
    unsigned int DynTypeId() const override;
    void DBWrite(cls_WriteVisitor const & writer) const override;
    /// Describes the class to the registrar of persistent classes; the start of the library calls it.
    static void InitializeMetadata(cls_ClassRegistrar & registrar);

    atr_String JournalMessage(QVRBasStringMode mode) const override;
    cow_String PythonType() const override;

private:
    template <class Visit> static void forEachArgument(Visit visit);

    static cow_String LoadProbCode2Str(int code);
    static cow_String res_DataTypeEnm2String(res_DataTypeEnm type);

    int m_ErrorNo;
    int m_ArgInt1, m_ArgInt2, m_ArgInt3, m_ArgInt4, m_ArgInt5, m_ArgInt6;
    cow_String m_ArgStr1, m_ArgStr2;
    cls_Uid uid;
};

#endif
