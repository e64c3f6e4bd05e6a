#ifndef omi_StartCount_h
#define omi_StartCount_h

/// Counts one start in `count`; true for the first, which adds 1 to `level`.
inline bool omi_countStart(int & count, int & level) {
    if (count++ != 0)
        return false;
    ++level;
    return true;
}

/// Counts one stop; true for the last, which takes 1 from `level`. A stop too many leaves `count` negative.
inline bool omi_countStop(int & count, int & level) {
    if (count-- != 1)
        return false;
    --level;
    return true;
}

#endif
