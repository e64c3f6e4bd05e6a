#ifndef nex_Exception_h
#define nex_Exception_h

#include "QVRBasException.h"

/// An exception with a code.
class QVRSHPCORE_API nex_Exception : public QVRBasException {
public:
    ~nex_Exception() override;

    /// The number of the kind of failure; 0 where the class has none.
    virtual int GetCode() const;
    /// The same as Clone, at this level of the tree.
    virtual nex_Exception * Copy() const = 0;

protected:
    explicit nex_Exception(int code = 0) noexcept : failureCode(code) {}
    nex_Exception(nex_Exception const &) noexcept = default;
    nex_Exception & operator=(nex_Exception const &) noexcept = default;

private:
    int failureCode;
};

#endif
