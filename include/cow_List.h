#ifndef cow_List_h
#define cow_List_h

#include "QVRShpCore_Export.h"
#include "cow_Counter.h"
#include "cow_ListBlock.h"
#include "cow_String.h"
#include "g3d_Point.h"
#include "g3d_Vector.h"
#include "mem_Alloc.h"
#include "uti_Coord3D.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <memory>
#include <new>

template <class T> class QVRSHPCORE_API cow_ListIter;

/// Says in a constructor call that the number behind it is a capacity, not an element.
enum cow_ListConstruct { cow_listConstruct };

/// Sequence of `T` that is copied in constant time and shares its storage until somebody writes. It shares on two
/// levels: a list points at an array of blocks, and both the array and each block count their sharers. A write to one
/// element of a long shared list copies the array of pointers and one block.
///
/// `T` is copyable and can be moved to another address bytewise (what holds no pointer into itself can), its alignment
/// is at most that of the fundamental types, and its destructor does not raise. Operations that search, compare or sort
/// need `==` and `<` of it, Sort and GetCArray a default constructor; a type without them can use all the others.
///
/// Indexes count from 0. An index outside the list ends the process at once through `abort`, without a message, unless
/// an operation says otherwise. A list holds fewer than 2^31 elements, those counted for which it has made room in
/// front (not checked).
///
/// Elements never move while the list grows at either end: as long as the list is not shared, their addresses stay
/// valid through Append and Prepend. References that Get hands out must not be written through once the list has been
/// copied.
///
/// When memory runs out, or an element's copy raises, the exception passes. Nothing leaks, and the list can be used on,
/// but what an insertion or removal in the middle has moved by then stays moved.
///
/// Threads: the counts are plain numbers. No list and no copy of it is shared between threads while one of them writes,
/// copies or destroys one, and FindMember, IsMember, Difference and every cow_ListIter count as copying.
template <class T> class QVRSHPCORE_API cow_List {
public:
    /// An empty list.
    cow_List() { Initialize(0); }
    /// An empty list with blocks of a size that suits `capacity` elements: 16 elements up to a capacity of 255, above
    /// that a power of two between 1/16 and 1/8 of the capacity.
    cow_List(cow_ListConstruct, int capacity) { Initialize(capacity); }
    /// Lists of one to five elements.
    explicit cow_List(T const & x0) : cow_List(cow_listConstruct, 1) { Append(x0); }
    cow_List(T const & x0, T const & x1) : cow_List(cow_listConstruct, 2) {
        Append(x0);
        Append(x1);
    }
    cow_List(T const & x0, T const & x1, T const & x2) : cow_List(cow_listConstruct, 3) {
        Append(x0);
        Append(x1);
        Append(x2);
    }
    cow_List(T const & x0, T const & x1, T const & x2, T const & x3) : cow_List(cow_listConstruct, 4) {
        Append(x0);
        Append(x1);
        Append(x2);
        Append(x3);
    }
    cow_List(T const & x0, T const & x1, T const & x2, T const & x3, T const & x4) : cow_List(cow_listConstruct, 5) {
        Append(x0);
        Append(x1);
        Append(x2);
        Append(x3);
        Append(x4);
    }
    cow_List(cow_List const & other) noexcept
        : length(other.length), slotCount(other.slotCount), blockShift(other.blockShift),
          firstOffset(other.firstOffset), arrayCount(other.arrayCount), blocks(other.blocks) {
        arrayCount->Increment();
    }
    cow_List & operator=(cow_List const & other) noexcept;
    ~cow_List() {
        if (arrayCount->Decrement())
            discard(length, slotCount, blockShift, firstOffset, arrayCount, blocks);
        arrayCount = nullptr;
    }

    /// The number of elements, and whether it is 0.
    int Length() const noexcept { return length; }
    bool IsEmpty() const noexcept { return length == 0; }

    /// `i` itself when it is the index of an element; otherwise the end of the process.
    int CheckIndex(int i) const {
        if (i < 0 || i >= length)
            RaiseOutOfRange(i);
        return i;
    }

    /// Element `i`, to be read.
    T const & ConstGet(int i) const { return *address(CheckIndex(i)); }
    T const & operator[](int i) const { return ConstGet(i); }
    /// The last element; the end of the process when there is none.
    T const & Last() const { return ConstGet(length - 1); }
    /// Element `i`, which must exist (not checked).
    T const & UncheckedConstGet(int i) const noexcept { return *address(i); }
    /// Element `i`, which must exist and be this list's alone (neither is checked): a write is seen by every sharer.
    T & UncheckedGet(int i) noexcept { return *address(i); }
    /// Element `i`, to be written: it becomes this list's alone first, together with its block.
    T & Get(int i);
    T & operator[](int i) { return Get(i); }

    /// Adds a copy of `x` at the end. Here and in the other operations `x` may be an element of this list.
    void Append(T const & x) {
        if (T * const place = placeAtEnd()) {
            ::new (static_cast<void *>(place)) T(x);
            ++length;
        } else {
            appendWithRoom(x);
        }
    }
    /// Adds a copy of `x` at the end, unless an equal element is there.
    template <class U = T> void AppendUnlessMember(T const & x) {
        if (!IsMember(x))
            Append(x);
    }
    /// Adds a copy of `x` at the front.
    void Prepend(T const & x);
    /// Inserts a copy of `x` before element `i`; `Length()` as `i` appends. The shorter side of the list is moved.
    void InsertIndex(int i, T const & x);
    /// Removes element `i`. The shorter side of the list is moved.
    void RemoveIndex(int i);
    /// The same for the last element.
    void RemoveLast() { RemoveIndex(length - 1); }
    /// Removes the first element that equals `x`, if there is one.
    template <class U = T> void RemoveMember(T const & x) {
        if (int const found = FindMember(x); found >= 0)
            RemoveIndex(found);
    }
    /// Removes the last element and returns it.
    T Pop();
    /// Adds copies of `x` until there are `n` elements; nothing when there are as many already.
    void Fill(int n, T const & x);

    /// With `n` below the length, removes all elements from `n` on. Otherwise makes room for `n` elements in all and
    /// adds none. `Resize(0)` also goes back to blocks of 16 elements. A negative `n` counts as 0.
    void Resize(int n);
    /// Gives the list copies of the `n` elements at `p`, which are not elements of this list, as its only content.
    void SetFromArray(T const * p, int n);
    /// Adds copies of the elements of `other`, which may be this list.
    void Concatenate(cow_List const & other);
    /// A new list with copies of the elements `from` to `to - 1`. What lies outside the list is left out.
    cow_List Slice(int from, int to) const;

    /// The index of the first element that equals `x`, or -1.
    template <class U = T> int FindMember(T const & x) const;
    /// Whether some element equals `x`.
    template <class U = T> bool IsMember(T const & x) const { return FindMember(x) >= 0; }
    /// Whether both lists have equal elements in the same order. An element that both share counts as equal to itself
    /// without being asked.
    template <class U = T> bool IsEqual(cow_List const & other) const;
    /// A new list with those elements of this one, in order and with repetitions, that are not members of `other`.
    template <class U = T> cow_List Difference(cow_List const & other) const;

    /// Sorts by `<`. Elements that compare equal get any order.
    template <class U = T> void Sort();
    /// A copy of the elements as an array from `new T[]`, which the caller deletes. `n` receives their number.
    template <class U = T> T * GetCArray(int & n) const;

private:
    friend class cow_ListIter<T>;
    using Block = cow_ListBlock<T>;

    /// Indexes from `first` up to, not including, `end`.
    struct Range {
        int first, end;
    };

    /// Elements that are built side by side in raw storage. Unless they are kept, they are destroyed again.
    class Building {
    public:
        explicit Building(T * storage) noexcept : items(storage) {}
        ~Building() {
            while (count > 0)
                items[--count].~T();
        }
        Building(Building const &) = delete;
        Building & operator=(Building const &) = delete;

        template <class... Source> void Add(Source const &... source) {
            ::new (static_cast<void *>(items + count)) T(source...);
            ++count;
        }
        void Keep() noexcept { count = 0; }

    private:
        T * items;
        int count = 0;
    };

    /// Elements that are added to a list at the indexes `first` to `last`, beyond its present ones. Unless they are
    /// kept, they are destroyed again, and blocks that were made for them alone are given up.
    class Addition {
    public:
        Addition(cow_List & grownList, int firstIndex, int lastIndex) noexcept
            : list(grownList), first(firstIndex), last(lastIndex) {}
        ~Addition() {
            if (!isKept)
                undo();
        }
        Addition(Addition const &) = delete;
        Addition & operator=(Addition const &) = delete;

        void Add(T const & x) {
            list.Put(first + count, x);
            ++count;
        }
        void AddBlock(T const * p, int number) {
            list.InitializeBlock(p, first + count, number);
            count += number;
        }
        int Count() const noexcept { return count; }
        void Keep() noexcept { isKept = true; }

    private:
        void undo() noexcept;

        cow_List & list;
        int first;
        int last;
        int count = 0;
        bool isKept = false;
    };

    void Initialize(int capacity);
    void InitializeBlock(T const * p, int start, int count);
    T * placeAtEnd() const noexcept;
    void appendWithRoom(T const & x);
    void CopyArray();
    void Isolate(int i) { IsolateRange(i, i); }
    void IsolateRange(int from, int to);
    void Prefix();
    void Put(int i, T const & x) { ::new (static_cast<void *>(address(i))) T(x); }
    void Destroy(int i) noexcept { address(i)->~T(); }
    [[noreturn]] void RaiseOutOfRange(int) const;
    template <class U = T> static int SortCmp(void const * a, void const * b);

    int blockSize() const noexcept { return 1 << blockShift; }
    int blockOf(int i) const noexcept { return (firstOffset + i) >> blockShift; }
    int slotOf(int i) const noexcept { return (firstOffset + i) & (blockSize() - 1); }
    T * address(int i) const noexcept { return blocks[blockOf(i)]->items + slotOf(i); }
    Range liveElements(int block) const noexcept;
    Block * copyOfBlock(int block, int end) const;
    void releaseBlock(int block) noexcept;
    static void discard(int length, int slotCount, int blockShift, int firstOffset, cow_Counter * arrayCount,
                        Block ** blocks) noexcept;
    void truncate(int n, int neededBlocks);

    int length = 0;
    int slotCount = 0;   ///< entries of `blocks`
    int blockShift = 4;  ///< log2 of the elements of a block
    int firstOffset = 0; ///< the position of element 0, counted in slots from the first slot of block 0 on
    cow_Counter * arrayCount = nullptr; ///< lists and iterators that hold `blocks`
    Block ** blocks = nullptr;          ///< null where there is no element; the array is null when it has no entry
};

/// cow_List::IsEqual.
template <class T> QVRSHPCORE_API bool operator==(cow_List<T> const & left, cow_List<T> const & right) {
    return left.IsEqual(right);
}

template <class T> cow_List<T> & cow_List<T>::operator=(cow_List const & other) noexcept {
    if (this == &other)
        return *this;
    cow_List dropped(other); // it takes over the own share, in which `other` may lie
    std::swap(length, dropped.length);
    std::swap(slotCount, dropped.slotCount);
    std::swap(blockShift, dropped.blockShift);
    std::swap(firstOffset, dropped.firstOffset);
    std::swap(arrayCount, dropped.arrayCount);
    std::swap(blocks, dropped.blocks);
    return *this;
}

template <class T> T & cow_List<T>::Get(int i) {
    CheckIndex(i);
    CopyArray();
    Isolate(i);
    return *address(i);
}

/// The place of the next element where Append has nothing else to do: neither the array of block pointers nor a block
/// is made, copied or resized. Otherwise null.
template <class T> inline T * cow_List<T>::placeAtEnd() const noexcept {
    int const b = blockOf(length);
    int const slot = firstOffset + length - (b << blockShift);
    bool const fitsArray = (b | 15) + 1 == slotCount; // the array grows by 16 entries
    if (slot == 0 || !fitsArray || arrayCount->Count() != 1)
        return nullptr;
    Block * const block = blocks[b];
    return block != nullptr && block->count == 1 ? block->items + slot : nullptr;
}

template <class T> void cow_List<T>::appendWithRoom(T const & x) {
    Resize(length + 1);
    Addition added(*this, length, length);
    IsolateRange(length, length);
    added.Add(x);
    added.Keep();
    ++length;
}

template <class T> void cow_List<T>::Prepend(T const & x) {
    Prefix();
    Addition added(*this, -1, -1);
    IsolateRange(-1, -1);
    added.Add(x);
    added.Keep();
    --firstOffset;
    ++length;
}

template <class T> void cow_List<T>::InsertIndex(int i, T const & x) {
    if (i == length)
        return Append(x);
    if (i == 0)
        return Prepend(x);
    CheckIndex(i);
    T const inserted(x); // `x` may be one of the elements that move
    if (i >= length - i) {
        Resize(length + 1);
        Addition added(*this, length, length);
        IsolateRange(i, length);
        added.Add(*address(length - 1));
        added.Keep();
        ++length;
        for (int k = length - 2; k > i; --k)
            *address(k) = *address(k - 1);
    } else {
        Prefix();
        Addition added(*this, -1, -1);
        IsolateRange(-1, i);
        added.Add(*address(0));
        added.Keep();
        --firstOffset;
        ++length;
        for (int k = 1; k < i; ++k)
            *address(k) = *address(k + 1);
    }
    *address(i) = inserted;
}

template <class T> void cow_List<T>::RemoveIndex(int i) {
    CheckIndex(i);
    CopyArray();
    int freedPosition;
    int freedBlock;
    if (i >= length - i) {
        IsolateRange(i, length - 1);
        for (int k = i; k < length - 1; ++k)
            *address(k) = *address(k + 1);
        Destroy(--length);
        freedPosition = firstOffset + length;
        freedBlock = freedPosition >> blockShift;
    } else {
        IsolateRange(0, i);
        for (int k = i; k > 0; --k)
            *address(k) = *address(k - 1);
        Destroy(0);
        --length;
        freedBlock = firstOffset >> blockShift;
        freedPosition = ++firstOffset;
    }
    if ((freedPosition & (blockSize() - 1)) == 0)
        releaseBlock(freedBlock);
}

template <class T> T cow_List<T>::Pop() {
    T last(Last());
    RemoveLast();
    return last;
}

template <class T> void cow_List<T>::Fill(int n, T const & x) {
    if (n <= length)
        return;
    Resize(n);
    Addition added(*this, length, n - 1);
    IsolateRange(length, n - 1);
    while (length + added.Count() < n)
        added.Add(x);
    added.Keep();
    length = n;
}

template <class T> void cow_List<T>::Resize(int n) {
    n = std::max(n, 0);
    CopyArray();
    int const end = n == 0 ? 0 : firstOffset + n;
    if (n < length || (n == 0 && length == 0))
        truncate(n, static_cast<int>((static_cast<long long>(end) + blockSize() - 1) >> blockShift));

    int const strideShift = blockShift + 4; // the array grows by 16 entries
    int const newSlots = static_cast<int>((end + (1LL << strideShift) - 1) >> strideShift) << 4;
    if (newSlots != slotCount) {
        blocks = static_cast<Block **>(mem_Realloc(blocks, sizeof(Block *) * static_cast<std::size_t>(newSlots)));
        std::fill(blocks + std::min(slotCount, newSlots), blocks + newSlots, nullptr);
        slotCount = newSlots;
    }
    if (n == 0) {
        blockShift = 4;
        firstOffset = 0;
    }
}

template <class T> void cow_List<T>::SetFromArray(T const * p, int n) {
    if (length != 0 || firstOffset != 0)
        Resize(0);
    Resize(n);
    if (n <= 0)
        return;
    Addition added(*this, 0, n - 1);
    IsolateRange(0, n - 1);
    while (added.Count() < n)
        added.AddBlock(p + added.Count(), std::min(blockSize(), n - added.Count()));
    added.Keep();
    length = n;
}

template <class T> void cow_List<T>::Concatenate(cow_List const & other) {
    Resize(length + other.length);
    Addition added(*this, length, length + other.length - 1);
    IsolateRange(length, length + other.length - 1);
    while (added.Count() < other.length)
        added.Add(*other.address(added.Count()));
    added.Keep();
    length += other.length;
}

template <class T> cow_List<T> cow_List<T>::Slice(int from, int to) const {
    int const low = std::max(from, 0);
    int const end = std::min(std::max(to, low), length);
    int const first = std::min(low, end);
    cow_List slice(cow_listConstruct, end - first);
    for (int i = first; i < end; ++i)
        slice.Append(*address(i));
    return slice;
}

template <class T> template <class U> int cow_List<T>::FindMember(T const & x) const {
    cow_List const walked(*this); // stays as it is whatever a comparison does
    for (int start = 0; start < walked.length;) {
        int const block = walked.blockOf(start);
        int const end = walked.liveElements(block).end;
        T const * const items = walked.address(start);
        for (int k = 0; k < end - start; ++k)
            if (items[k] == x)
                return start + k;
        start = end;
    }
    return -1;
}

template <class T> template <class U> bool cow_List<T>::IsEqual(cow_List const & other) const {
    if (length != other.length)
        return false;
    for (int i = 0; i < length; ++i) {
        T const * const mine = address(i);
        T const * const others = other.address(i);
        if (mine != others && !(*mine == *others))
            return false;
    }
    return true;
}

template <class T> template <class U> cow_List<T> cow_List<T>::Difference(cow_List const & other) const {
    cow_List const walked(*this);
    cow_List difference;
    for (int i = 0; i < walked.length; ++i)
        if (!other.IsMember(*walked.address(i)))
            difference.Append(*walked.address(i));
    return difference;
}

template <class T> template <class U> void cow_List<T>::Sort() {
    if (length < 1)
        return;
    Block scratch(length);
    Building sorted(scratch.items);
    for (int i = 0; i < length; ++i) {
        sorted.Add();
        scratch.items[i] = *address(i);
    }
    std::qsort(scratch.items, static_cast<std::size_t>(length), sizeof(T), &SortCmp<U>);
    CopyArray();
    IsolateRange(0, length - 1);
    for (int i = 0; i < length; ++i)
        *address(i) = scratch.items[i];
}

template <class T> template <class U> int cow_List<T>::SortCmp(void const * a, void const * b) {
    T const & left = *static_cast<T const *>(a);
    T const & right = *static_cast<T const *>(b);
    return left < right ? -1 : left == right ? 0 : 1;
}

template <class T> template <class U> T * cow_List<T>::GetCArray(int & n) const {
    std::unique_ptr<T[]> copy(new T[static_cast<std::size_t>(length)]);
    for (int i = 0; i < length; ++i)
        copy[static_cast<std::size_t>(i)] = *address(i);
    n = length;
    return copy.release();
}

/// Chooses the block size for a capacity and makes the array of block pointers. What a single-precision number keeps of
/// the capacity decides: its exponent gives the block size, the first bits of its fraction the number of blocks.
template <class T> void cow_List<T>::Initialize(int capacity) {
    auto count = std::make_unique<cow_Counter>();
    if (capacity != 0) {
        int const bits = std::bit_cast<int>(static_cast<float>(capacity));
        int const shift = (bits >> 23) - 130; // floor(log2(capacity)) - 3
        int neededBlocks = 0;
        if (shift > blockShift) {
            blockShift = shift;
            neededBlocks = ((bits & 0x7fffff) + 0x8fffff) >> 20;
        }
        int const newSlots = neededBlocks + 16;
        blocks = static_cast<Block **>(mem_Malloc(sizeof(Block *) * static_cast<std::size_t>(newSlots)));
        std::fill(blocks, blocks + newSlots, nullptr);
        slotCount = newSlots;
    }
    arrayCount = count.release();
}

/// Builds copies of `count` elements from index `start` on, all in one block.
template <class T> void cow_List<T>::InitializeBlock(T const * p, int start, int count) {
    Building built(address(start));
    for (int k = 0; k < count; ++k)
        built.Add(p[k]);
    built.Keep();
}

/// Gives the list an array of block pointers of its own.
template <class T> void cow_List<T>::CopyArray() {
    if (arrayCount->Count() < 2)
        return;
    auto count = std::make_unique<cow_Counter>();
    if (slotCount != 0) {
        auto * const copy = static_cast<Block **>(mem_Malloc(sizeof(Block *) * static_cast<std::size_t>(slotCount)));
        for (int b = 0; b < slotCount; ++b) {
            copy[b] = blocks[b];
            if (copy[b] != nullptr)
                ++copy[b]->count;
        }
        blocks = copy;
    }
    arrayCount->Decrement();
    arrayCount = count.release();
}

/// Gives the list blocks of its own for the indexes `from` to `to`, whether they have elements yet or not. The array of
/// block pointers must be its own already, and have the entries.
template <class T> void cow_List<T>::IsolateRange(int from, int to) {
    for (int b = blockOf(from); b <= blockOf(to); ++b) {
        if (blocks[b] == nullptr) {
            blocks[b] = new Block(blockSize());
        } else if (blocks[b]->count > 1) {
            Block * const copy = copyOfBlock(b, length);
            --blocks[b]->count;
            blocks[b] = copy;
        }
    }
}

/// Prepares an extension at the front: where there is no room, all free entries of the array are moved there.
template <class T> void cow_List<T>::Prefix() {
    if (firstOffset != 0)
        return CopyArray();
    int const used = (length - 1 + blockSize()) >> blockShift;
    if (used == slotCount)
        Resize((used << blockShift) + 1);
    else
        CopyArray();
    int const shift = slotCount - used;
    std::move_backward(blocks, blocks + used, blocks + slotCount);
    std::fill(blocks, blocks + std::min(shift, used), nullptr);
    firstOffset = shift << blockShift;
}

template <class T> void cow_List<T>::RaiseOutOfRange(int) const {
    std::abort();
}

/// The elements that lie in a block.
template <class T> typename cow_List<T>::Range cow_List<T>::liveElements(int block) const noexcept {
    int const base = (block << blockShift) - firstOffset;
    return {std::max(base, 0), length - base <= blockSize() ? length : base + blockSize()};
}

/// A new block with copies of those elements of a block whose index is below `end`.
template <class T> typename cow_List<T>::Block * cow_List<T>::copyOfBlock(int block, int end) const {
    auto copy = std::make_unique<Block>(blockSize());
    Range const live = liveElements(block);
    int const firstSlot = slotOf(live.first);
    T const * const source = blocks[block]->items + firstSlot;
    int const count = std::min(live.end, end) - live.first;
    Building built(copy->items + firstSlot);
    for (int k = 0; k < count; ++k)
        built.Add(source[k]);
    built.Keep();
    return copy.release();
}

/// Gives up the share of a block, if there is one; with the last share go its elements.
template <class T> void cow_List<T>::releaseBlock(int block) noexcept {
    if (blocks[block] == nullptr)
        return;
    if (--blocks[block]->count == 0) {
        Range const live = liveElements(block);
        for (int i = live.end - 1; i >= live.first; --i)
            Destroy(i);
        delete blocks[block];
    }
    blocks[block] = nullptr;
}

/// Gives up all blocks of a list whose last sharer goes, then its array. It takes the fields by value, so that a list
/// or iterator that is a local variable of the caller can stay in registers.
template <class T>
void cow_List<T>::discard(int length, int slotCount, int blockShift, int firstOffset, cow_Counter * arrayCount,
                          Block ** blocks) noexcept {
    for (int b = 0; b < slotCount; ++b) {
        Block * const block = blocks[b];
        if (block == nullptr || --block->count != 0)
            continue;
        int const base = (b << blockShift) - firstOffset;
        T * const items = block->items;
        int const first = std::max(-base, 0);
        for (int slot = std::min(length - base, 1 << blockShift) - 1; slot >= first; --slot)
            items[slot].~T();
        delete block;
    }
    mem_Free(blocks);
    delete arrayCount;
}

/// Removes the elements from `n` on, and the blocks behind the first `neededBlocks`. All that can fail is done first.
template <class T> void cow_List<T>::truncate(int n, int neededBlocks) {
    int const cut = neededBlocks - 1; // the block that keeps only a part of its elements, if there is one
    bool const isCut = firstOffset + n < (neededBlocks << blockShift);
    Block * const kept = isCut && blocks[cut]->count > 1 ? copyOfBlock(cut, n) : nullptr;
    for (int b = neededBlocks; b < slotCount; ++b)
        releaseBlock(b);
    if (kept != nullptr) {
        --blocks[cut]->count;
        blocks[cut] = kept;
    } else if (isCut) {
        for (int i = liveElements(cut).end - 1; i >= n; --i)
            Destroy(i);
    }
    length = n;
}

template <class T> void cow_List<T>::Addition::undo() noexcept {
    while (count > 0)
        list.Destroy(first + --count);
    for (int b = list.blockOf(first); b <= list.blockOf(last); ++b)
        if (Range const live = list.liveElements(b); live.first >= live.end)
            list.releaseBlock(b);
}

extern template class cow_List<unsigned int>;
extern template class cow_List<float>;
extern template class cow_List<cow_String>;
extern template class cow_List<g3d_Point>;
extern template class cow_List<g3d_Vector>;
extern template class cow_List<uti_Coord3D>;

extern template bool operator==(cow_List<unsigned int> const &, cow_List<unsigned int> const &);
extern template bool operator==(cow_List<float> const &, cow_List<float> const &);
extern template bool operator==(cow_List<cow_String> const &, cow_List<cow_String> const &);

#endif
