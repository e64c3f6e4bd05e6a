#ifndef QVRBasException_h
#define QVRBasException_h

#include "QVRBasStringMode.h"
#include "QVRShpCore_Export.h"
#include "atr_String.h"
#include "mem_AllocationOperators.h"

/// Root of the exceptions that the library raises. Catch them by reference, at the level of the tree that is wanted.
class QVRSHPCORE_API QVRBasException : public mem_AllocationOperators {
public:
    virtual ~QVRBasException();

    /// The user's report, followed by " (file:line)" once the exception has been raised by Throw.
    virtual atr_String DeveloperReport(QVRBasStringMode mode) const;
    /// The message and nothing else.
    virtual atr_String UserReport(QVRBasStringMode mode) const;
    /// The message in the encoding that `mode` names.
    virtual atr_String AsString(QVRBasStringMode mode) const = 0;
    /// Raises a copy of this object under its own type. Every concrete class overrides it with `throw *this`.
    [[noreturn]] virtual void Propagate() const = 0;
    /// A copy under the object's own type. The caller owns it.
    virtual QVRBasException * Clone() const = 0;

    /// Notes the place and raises the object under its own type. `sourceFile` is kept, not copied: a literal.
    [[noreturn]] void Throw(char const * sourceFile, int line);

    /// Where Throw was called; an empty text and 0 before that.
    char const * SourceFile() const { return throwFile; }
    int Line() const { return throwLine; }

protected:
    QVRBasException() noexcept = default;
    QVRBasException(QVRBasException const &) noexcept = default;
    QVRBasException & operator=(QVRBasException const &) noexcept = default;

private:
    char const * throwFile = "";
    int throwLine = 0;
};

#endif
