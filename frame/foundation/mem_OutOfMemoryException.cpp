#include "mem_OutOfMemoryException.h"

#include "atr_ConstantText.h"
#include "atr_translate.h"

namespace {

constexpr char outOfMemoryText[] = "The system ran out of memory";

} // namespace

mem_OutOfMemoryException::~mem_OutOfMemoryException() = default;

atr_String mem_OutOfMemoryException::AsString(QVRBasStringMode mode) const {
    try {
        return atr_translate(outOfMemoryText).Result(mode);
    } catch (mem_OutOfMemoryException const &) {
        return atr_String(atr_ConstantText::of(outOfMemoryText));
    }
}

void mem_OutOfMemoryException::Propagate() const {
    throw *this;
}

QVRBasException * mem_OutOfMemoryException::Clone() const {
    return new mem_OutOfMemoryException(*this);
}

void mem_raiseOutOfMemory() {
    mem_OutOfMemoryException().Throw("frame/foundation/mem_OutOfMemoryException", __LINE__);
}
