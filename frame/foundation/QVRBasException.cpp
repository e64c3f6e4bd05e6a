#include "QVRBasException.h"

#include <cstdlib>

QVRBasException::~QVRBasException() = default;

atr_String QVRBasException::UserReport(QVRBasStringMode mode) const {
    return AsString(mode);
}

atr_String QVRBasException::DeveloperReport(QVRBasStringMode mode) const {
    atr_String report = UserReport(mode);
    if (*throwFile != '\0')
        report = report + " (" + throwFile + ":" + atr_String(throwLine) + ")";
    return report;
}

void QVRBasException::Throw(char const * sourceFile, int line) {
    throwFile = sourceFile ? sourceFile : "";
    throwLine = line;
    Propagate();
    std::abort(); // a derived class broke its promise
}
