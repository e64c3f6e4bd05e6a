// Analytic rigid surfaces in both representations: what they are made with, how they are stored and read back, moved,
// and read through the holder.

#include "memory_refusals.h"

#include "cls_MemoryStore.h"
#include "cls_MetadataRegistrar.h"
#include "gsl_Matrix.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "shp_ArsDataHolder.h"
#include "shp_PrimEnums.h"
#include "typ_ArchCompTable.h"

#include "QVRShpCore_Module.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using Pair = shp_SuppDataPair;
using Rigid = shp_AnalyticRigidSurfaceData;
using Segment = shp_AnalyticSurfaceSegment;
using Surface = shp_AnalyticSurface;
using CmdException = nex_CmdException<atr_String, 2>;
using PrimException = nex_PrimException<atr_String, 1>;

// ---- Every field of an object as text, in the order of the stored attributes; the identity is the last.

using Texts = std::vector<std::string>;

std::string textOf(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%a", value);
    return text;
}
std::string textOf(int value) {
    return std::to_string(value);
}
std::string textOf(atr_String const & value) {
    return '"' + std::string(value.CStr()) + '"';
}
std::string textOf(cls_Uid const & uid) {
    return '#' + std::to_string(uid.High()) + '.' + std::to_string(uid.Low());
}
std::string textOf(g3d_Point const & p) {
    return textOf(double(p.X())) + ' ' + textOf(double(p.Y())) + ' ' + textOf(double(p.Z())) + ' ' +
           textOf(double(p.W()));
}
std::string textOf(g3d_Vector const & v) {
    return textOf(double(v.X())) + ' ' + textOf(double(v.Y())) + ' ' + textOf(double(v.Z()));
}

Texts fieldsOf(Pair const & pair);
Texts fieldsOf(Segment const & segment);

std::string joined(Texts const & fields) {
    std::string text;
    for (std::string const & field : fields)
        text += field + "; ";
    return '{' + text + '}';
}
std::string textOf(Pair const & pair) {
    return joined(fieldsOf(pair));
}
std::string textOf(Segment const & segment) {
    return joined(fieldsOf(segment));
}
template <class List> std::string listText(List const & list) {
    std::string text = textOf(list.uid) + " [";
    for (int i = 0; i < list.Length(); ++i)
        text += textOf(list[i]) + ", ";
    return text + ']';
}

Texts fieldsOf(Pair const & p) {
    return {textOf(p.value), textOf(int(p.dataType)), textOf(p.uid)};
}
Texts fieldsOf(Segment const & s) {
    return {textOf(int(s.type)), listText(s.data), textOf(s.uid)};
}
Texts fieldsOf(Surface const & s) {
    return {textOf(int(s.type)),        textOf(s.filletRadius), listText(s.profile),
            listText(s.localCoordData), textOf(s.name),         textOf(s.uid)};
}
Texts fieldsOf(Rigid const & r) {
    return {textOf(r.meshIndex),        textOf(r.classIndex),      textOf(r.elemIndex),      textOf(r.surfaceName),
            textOf(int(r.surfaceType)), listText(r.localCoordDef), listText(r.dataPairList), textOf(r.uid)};
}

// ---- Objects with chance content.

class Chance {
public:
    explicit Chance(unsigned int seed) : engine(seed) {}

    int upTo(int highest) { return std::uniform_int_distribution<int>(0, highest)(engine); }
    float number() { return std::uniform_real_distribution<float>(-1e3f, 1e3f)(engine); }
    template <class E> E one() { return static_cast<E>(upTo(3)); }
    cls_Uid uid() { return upTo(1) ? cls_Uid::AllocateUid() : cls_Uid(); }
    atr_String text() {
        constexpr char const * texts[] = {"", "default", "die \"2\"\n", "Stößel"};
        return texts[upTo(3)];
    }

    void fill(g3d_Point & p) {
        p = g3d_Point(number(), number(), number());
        p.W() = number();
    }
    void fill(g3d_Vector & v) { v = g3d_Vector(number(), number(), number()); }
    template <template <class> class List, class T> void fillList(List<T> & list, int longest) {
        list.Resize(0);
        list.uid = uid();
        for (int left = upTo(longest); left > 0; --left) {
            T element;
            fill(element);
            list.Append(element);
        }
    }
    void fill(Pair & p) {
        fill(p.value);
        p.dataType = one<shp_SuppDataPairEnm>();
        p.uid = uid();
    }
    void fill(Segment & s) {
        s.type = one<Segment::TypeEnm>();
        fillList(s.data, 3);
        s.uid = uid();
    }
    void fill(Surface & s) {
        s.type = one<Surface::TypeEnm>();
        s.filletRadius = double(number()) / 3;
        fillList(s.profile, 40); // more than a block of the list
        fillList(s.localCoordData, 4);
        s.name = text();
        s.uid = uid();
    }
    void fill(Rigid & r) {
        for (int * const index : {&r.meshIndex, &r.classIndex, &r.elemIndex})
            *index = upTo(1000) - 500;
        r.surfaceName = text();
        r.surfaceType = one<shp_AnalyticRigidSurfEnm>();
        fillList(r.localCoordDef, 4);
        fillList(r.dataPairList, 40);
        r.uid = uid();
    }

private:
    std::mt19937 engine;
};

template <class T> T chanceMade(unsigned int seed) {
    T object;
    Chance(seed).fill(object);
    return object;
}

cls_MemoryStore throughBytes(cls_MemoryStore const & store) {
    cls_MemoryStore::ByteArray const bytes = store.Bytes();
    return cls_MemoryStore(bytes.data(), bytes.size());
}

template <class T> cls_MemoryStore stored(T const & object) {
    cls_MemoryStore store;
    object.DBWrite(cls_WriteVisitor(store));
    return store;
}

template <class T> T readBack(cls_MemoryStore const & store, int index = 0) {
    return T(cls_ReadVisitor(store, index));
}

template <class T> class StoredSurfaceClass : public testing::Test {
protected:
    static cls_ClassMetadata const & metadata() {
        return *omi_Singleton<cls_MetadataRegistrar>::Instance().Find(T::TypeId());
    }
};
using AllClasses = testing::Types<Pair, Rigid, Segment, Surface>;
TYPED_TEST_SUITE(StoredSurfaceClass, AllClasses);

TYPED_TEST(StoredSurfaceClass, ReadsBackWhatWasStoredByTypeAndByNumber) {
    using T = TypeParam;
    for (unsigned int seed = 0; seed < 100; ++seed) {
        T const object = chanceMade<T>(seed);
        cls_MemoryStore const store = stored(object), kept = throughBytes(store);
        EXPECT_EQ(fieldsOf(readBack<T>(store)), fieldsOf(object));
        EXPECT_EQ(fieldsOf(readBack<T>(kept)), fieldsOf(object));
        EXPECT_EQ(stored(readBack<T>(kept)).Bytes(), store.Bytes());

        cls_ReadVisitor reader(kept);
        ASSERT_EQ(reader.GetTypeNumber(), object.DynTypeId());
        void * const made = omi_Singleton<cls_MetadataRegistrar>::Instance().Construct(reader);
        EXPECT_EQ(fieldsOf(*static_cast<T const *>(made)), fieldsOf(object));
        cls_MemoryStore again;
        this->metadata().DBWrite(made, cls_WriteVisitor(again));
        EXPECT_EQ(again.Bytes(), store.Bytes());
        this->metadata().Delete(made);
        EXPECT_EQ(fieldsOf(*std::unique_ptr<T>(T::Ctor(reader))), fieldsOf(object));
    }
}

TYPED_TEST(StoredSurfaceClass, AttributesStandInTheArchiveAsTheDescriptionNamesThem) {
    cls_MemoryStore const store = stored(chanceMade<TypeParam>(1));
    ASSERT_EQ(std::size_t(this->metadata().NumAttributes()), store[0].attributes.size());
    for (int i = 0; i < this->metadata().NumAttributes(); ++i) {
        cls_AttributeMetadata const & described = this->metadata().GetAttribute(i);
        cls_MemoryStore::Attribute const & written = store[0].attributes[std::size_t(i)];
        EXPECT_STREQ(written.name.CStr(), described.name.CStr());
        bool const isEnum = described.type == cls_AttributeType_ENUM;
        EXPECT_EQ(written.Type(), isEnum ? cls_AttributeType_STRING : described.type);
        if (auto const * part = std::get_if<cls_MemoryStore::ObjectIndex>(&written.value)) {
            EXPECT_EQ(store.At(*part).classNumber, described.typeNumber);
        }
    }
}

/// Writes the object of an archive once more, with what `replacement` writes in the place of one of its attributes.
template <class Replacement>
void replay(cls_MemoryStore const & from, cls_MemoryStore::Object const & object, cls_WriteVisitor const & writer,
            char const * replaced, Replacement replacement) {
    ASSERT_NE(writer.StartWrite(object.classNumber, object.uid), 0);
    for (cls_MemoryStore::Attribute const & attribute : object.attributes) {
        cls_FieldHandle const field(attribute.name.CStr());
        if (attribute.name == replaced) {
            replacement(writer, field);
        } else if (auto const * number = std::get_if<int>(&attribute.value)) {
            writer.Write(field, *number);
        } else if (auto const * real = std::get_if<double>(&attribute.value)) {
            writer.Write(field, *real);
        } else if (auto const * text = std::get_if<cow_String>(&attribute.value)) {
            writer.Write(field, *text);
        } else {
            auto const & part = from.At(std::get<cls_MemoryStore::ObjectIndex>(attribute.value));
            cls_WriteRequestListObj const request(writer);
            if (attribute.name.Empty())
                replay(from, part, cls_WriteVisitor(request), "no such attribute", replacement);
            else
                replay(from, part, cls_WriteVisitor(writer, field), "no such attribute", replacement);
        }
    }
}

template <class Replacement>
cls_MemoryStore replayed(cls_MemoryStore const & from, char const * replaced, Replacement replacement) {
    cls_MemoryStore store;
    replay(from, from[0], cls_WriteVisitor(store), replaced, replacement);
    return store;
}

/// What a field reads as that the archive does not have.
std::string textWithout(cls_AttributeMetadata const & attribute) {
    switch (attribute.type) {
    case cls_AttributeType_INT: return textOf(0);
    case cls_AttributeType_DOUBLE: return textOf(0.0);
    case cls_AttributeType_STRING: return textOf(atr_String());
    default: return attribute.flag == 1 ? listText(cls_xoList<g3d_Point>()) : textOf(g3d_Point());
    }
}

std::string refusalOf(QVRBasException const & raised) {
    return std::string(raised.AsString(0).CStr()) + " @" + std::to_string(raised.Line());
}

TYPED_TEST(StoredSurfaceClass, EachMissingAttributeHasItsDefaultAndNoOtherTypeIsTakenForIt) {
    using T = TypeParam;
    T const object = chanceMade<T>(5);
    cls_MemoryStore const store = stored(object);
    for (int i = 0; i < this->metadata().NumAttributes(); ++i) {
        cls_AttributeMetadata const & attribute = this->metadata().GetAttribute(i);
        SCOPED_TRACE(attribute.name.CStr());
        cls_MemoryStore const without =
            replayed(store, attribute.name.CStr(), [](cls_WriteVisitor const &, cls_FieldHandle const &) {});
        if (attribute.type == cls_AttributeType_ENUM) {
            try {
                readBack<T>(without);
                ADD_FAILURE() << "an enumeration has no default";
            } catch (CmdException const & raised) {
                EXPECT_EQ(refusalOf(raised).find("omu_PrimEnum(const cow_String&) - str not allowed:   Perm"), 0u);
                EXPECT_EQ(raised.Line(), 103);
            }
        } else {
            Texts expected = fieldsOf(object);
            expected[std::size_t(i)] = textWithout(attribute);
            EXPECT_EQ(fieldsOf(readBack<T>(without)), expected);
        }

        cls_MemoryStore const mistaken =
            replayed(store, attribute.name.CStr(), [&](cls_WriteVisitor const & writer, cls_FieldHandle const & field) {
                if (attribute.type == cls_AttributeType_INT)
                    writer.Write(field, cow_String("1"));
                else
                    writer.Write(field, 1);
            });
        try {
            readBack<T>(mistaken);
            ADD_FAILURE() << "another type was taken";
        } catch (PrimException const & raised) {
            std::string const message = refusalOf(raised);
            EXPECT_NE(message.find(this->metadata().Name().CStr()), std::string::npos) << message;
            EXPECT_NE(message.find(attribute.name.CStr()), std::string::npos) << message;
        }
    }
}

TYPED_TEST(StoredSurfaceClass, IsNotReadFromAnotherClass) {
    cls_MemoryStore const other = stored(cls_xoList<g3d_Point>());
    EXPECT_THROW(readBack<TypeParam>(other), PrimException);
}

TYPED_TEST(StoredSurfaceClass, ReadingSurvivesEachRefusedAllocation) {
    TypeParam const object = chanceMade<TypeParam>(2);
    cls_MemoryStore const store = stored(object);
    std::optional<TypeParam> read;
    refuseEachAllocation([&] { read.emplace(cls_ReadVisitor(store)); }, [&] { EXPECT_FALSE(read); });
    EXPECT_EQ(fieldsOf(*read), fieldsOf(object)); // leaks are the sanitizer's to find
}

TYPED_TEST(StoredSurfaceClass, SharesItsContentWithCopiesAndKeepsItsIdentityInThem) {
    using T = TypeParam;
    T const object = chanceMade<T>(3);
    T copy(object), assigned, moved(std::move(copy));
    assigned = object;
    EXPECT_EQ(fieldsOf(copy), fieldsOf(object)) << "a move is a copy";
    EXPECT_EQ(fieldsOf(moved), fieldsOf(object));
    EXPECT_EQ(fieldsOf(assigned), fieldsOf(object));
    if constexpr (requires { object.Copy(); }) {
        EXPECT_EQ(fieldsOf(*std::unique_ptr<T>(object.Copy())), fieldsOf(object));
    }
    Chance(4).fill(assigned);
    EXPECT_EQ(fieldsOf(copy), fieldsOf(object));
}

// ---- Registration.

struct Description {
    unsigned int number;
    int version;
    bool isNumbered;       ///< whether its attributes have numbers
    char const * contents; ///< the attributes with their types
};
constexpr Description descriptions[] = {
    {0x33f0001, 203, false,
     "meshIndex 5 classIndex 5 elemIndex 5 surfaceName 11 surfaceType 14 localCoordDef 15 dataPairList 15 "},
    {0x33f0002, 203, false, "value 15 dataType 14 "},
    {0x33f0003, 1011, true, "type 14 data 15 "},
    {0x33f0005, 1011, true, "type 14 filletRadius 10 profile 15 localCoordData 15 name 11 "},
};

void expectRegistered() {
    cls_MetadataRegistrar const & classes = omi_Singleton<cls_MetadataRegistrar>::Instance();
    typ_ArchCompEntry const component = typ_ArchCompTable::Find(831);
    ASSERT_EQ(component.NumRows(), 13u);
    unsigned int row = 0;
    for (Description const & description : descriptions) {
        cls_ClassMetadata const * const metadata = classes.Find(description.number);
        ASSERT_NE(metadata, nullptr);
        EXPECT_STREQ(metadata->Name().CStr(), component.Row(++row)->name);
        EXPECT_EQ(metadata->Version(), description.version);
        EXPECT_EQ(metadata->Base(), 1u);
        std::string contents;
        for (int i = 0; i < metadata->NumAttributes(); ++i) {
            cls_AttributeMetadata const & attribute = metadata->GetAttribute(i);
            contents += std::string(attribute.name.CStr()) + ' ' + std::to_string(attribute.type) + ' ';
            EXPECT_EQ(attribute.number, description.isNumbered ? i : -1);
            bool const isList = attribute.typeNumber == 0x230001;
            EXPECT_EQ(attribute.flag, isList ? 1 : 0);
            EXPECT_EQ(isList || attribute.typeNumber == g3d_Point::TypeId(), attribute.type == 15);
            EXPECT_TRUE(attribute.type == 15 || attribute.typeNumber == 1);
        }
        EXPECT_EQ(contents, description.contents);
    }
}

TEST(SurfaceRegistration, IsDoneByTheFirstStartAndAgainByTheFirstAfterAFullStop) {
    cls_MetadataRegistrar const & classes = omi_Singleton<cls_MetadataRegistrar>::Instance();
    expectRegistered();
    int const numClasses = classes.Length();
    unsigned int const numComponents = typ_ArchCompTable::NumEntries();
    typ_ArchCompTable::InsertEntry(831, typ_ArchCompEntry());
    int level = 0;
    QVRShpCore_initialize(level); // the library has been started when it was loaded
    EXPECT_EQ(typ_ArchCompTable::Find(831).NumRows(), 0u) << "a second start registers nothing";
    QVRShpCore_finalize(level);
    QVRShpCore_libraryEntry(nullptr, 0, nullptr);
    QVRShpCore_libraryEntry(nullptr, 1, nullptr);
    expectRegistered();
    EXPECT_EQ(classes.Length(), numClasses);
    EXPECT_EQ(typ_ArchCompTable::NumEntries(), numComponents);
    for (unsigned int row = 7; row <= 10; row += 3)
        EXPECT_EQ(typ_ArchCompTable::FindRow(typ_reference(831, std::uint16_t(row)))->reference, 0x33f0000 + row);
}

TYPED_TEST(StoredSurfaceClass, DescriptionDeletesHolders) {
    using T = TypeParam;
    using Policy = std::conditional_t<std::is_same_v<T, Rigid>, cow_Virtual<T>, cow_Direct<T>>;
    cow_COW<T, Policy> const kept(new T(chanceMade<T>(1)));
    Texts const before = fieldsOf(*kept.ConstGet());
    auto const passed = [](cow_COW<T, Policy> * holder) {
        return reinterpret_cast<cow_COW<int, cow_Direct<int>> *>(holder);
    };
    this->metadata().DeleteCow(passed(new cow_COW<T, Policy>(kept)));
    EXPECT_TRUE(kept.Exclusive());
    EXPECT_EQ(fieldsOf(*kept.ConstGet()), before);
    T::CowDtor(passed(new cow_COW<T, Policy>(new T))); // the object goes with its last holder: see the sanitizer
}

// ---- Identities in a pass.

TEST(RigidSurfaces, ObjectsWithOneIdentityAreStoredOnceAndThoseWithoutEachTime) {
    Pair const pair(g3d_Point(1, 2, 3), shp_SuppDataPair_Line);
    Pair shared = pair;
    shared.uid.NewUid();
    Pair changed = shared;
    changed.dataType = shp_SuppDataPair_Parab;
    Rigid surface;
    for (Pair const & each : {pair, shared, pair, changed})
        surface.dataPairList.Append(each);

    cls_MemoryStore store;
    cls_WriteVisitor const writer(store);
    surface.DBWrite(writer);
    int const once = store.NumObjects();
    surface.DBWrite(writer);
    EXPECT_EQ(store.NumObjects(), once);
    ASSERT_EQ(store.Length(), 2);
    EXPECT_EQ(fieldsOf(readBack<Rigid>(store, 0)), fieldsOf(readBack<Rigid>(store, 1)));

    Rigid apart = surface;
    apart.dataPairList.Get(3).uid.NewUid();
    EXPECT_EQ(stored(apart).NumObjects(), once + 2) << "a pair and its point";
    EXPECT_EQ(fieldsOf(readBack<Rigid>(stored(apart))), fieldsOf(apart));

    Rigid expected = surface; // whoever has the identity of another is the other
    expected.dataPairList.Get(3) = shared;
    EXPECT_EQ(fieldsOf(readBack<Rigid>(throughBytes(store))), fieldsOf(expected));
}

/// The message and line of what writing `object` raises.
template <class T> std::string writeRefusal(T const & object) {
    try {
        stored(object);
    } catch (CmdException const & raised) {
        return refusalOf(raised);
    }
    return "nothing raised";
}

TEST(RigidSurfaces, ATypeWithoutANameCannotBeStored) {
    std::string const refusal = "omu_PrimEnum(Enum) - Enum value not allowed: 4  Permissible: ";
    EXPECT_EQ(writeRefusal(Pair()), refusal + "Start, Line, Parab, Circl @76");
    Rigid withDefaultPair;
    withDefaultPair.dataPairList.Append(Pair());
    EXPECT_EQ(writeRefusal(withDefaultPair).find(refusal), 0u);
    EXPECT_EQ(writeRefusal(Rigid(shp_AnalyticRigidSurfEnm(4))).find(refusal), 0u);
    Segment segment;
    segment.type = Segment::TypeEnm(4);
    EXPECT_EQ(writeRefusal(segment).find(refusal), 0u);
    Surface surface;
    EXPECT_EQ(writeRefusal(surface), "nothing raised");
    surface.profile.Append(segment);
    EXPECT_EQ(writeRefusal(surface).find(refusal), 0u);
}

// ---- Making and moving.

TEST(RigidSurfaces, OlderOnesBeginWithTheirVectorsAndFreshIdentities) {
    cls_Uid const null;
    std::string const zero = textOf(g3d_Vector()) + ", ";
    auto const expected = [&](Rigid const & made, char const * name, int type, int vectors) {
        std::string list = textOf(null) + " [";
        for (int i = 0; i < vectors; ++i)
            list += zero;
        return Texts{"-1",
                     "-1",
                     "-1",
                     textOf(atr_String(name)),
                     textOf(type),
                     list + "]",
                     textOf(made.dataPairList.uid) + " []",
                     textOf(made.uid)};
    };
    std::set<cls_Uid> identities{null};
    Rigid const byDefault;
    EXPECT_EQ(fieldsOf(byDefault), expected(byDefault, "default", 2, 3));
    constexpr int vectors[] = {0, 0, 3, 2, 0};
    for (int type = 0; type < 5; ++type) {
        Rigid const made{shp_AnalyticRigidSurfEnm(type)};
        EXPECT_EQ(fieldsOf(made), expected(made, "", type, vectors[type]));
        EXPECT_TRUE(identities.insert(made.uid).second);
        EXPECT_TRUE(identities.insert(made.dataPairList.uid).second);
    }
    EXPECT_EQ(fieldsOf(Surface()),
              (Texts{"0", textOf(0.0), textOf(null) + " []", textOf(null) + " []", "\"\"", textOf(null)}));
    EXPECT_EQ(fieldsOf(Pair()), (Texts{textOf(g3d_Point()), "4", textOf(null)}));
}

TEST(RigidSurfaces, ATransformationMovesTheProfileAndNothingElse) {
    double const rows[4][4] = {{0.3, -1.7, 0.1, 5}, {1e-3, 0.2, 9, -4.5}, {7, 1.0 / 3, -2, 1e-9}, {9, 9, 9, 9}};
    for (unsigned int seed = 0; seed < 30; ++seed) {
        Surface const original = chanceMade<Surface>(seed);
        Texts const before = fieldsOf(original);
        Surface moved = original;
        moved.SetTransform(gsl_Matrix(rows));
        EXPECT_EQ(fieldsOf(original), before) << "the copy shares its storage";

        Surface expected = original;
        for (int i = 0; i < expected.profile.Length(); ++i)
            for (int k = 0; k < expected.profile[i].data.Length(); ++k) {
                g3d_Point & p = expected.profile.Get(i).data.Get(k);
                double const x = p.X(), y = p.Y(), z = p.Z();
                float * const coords[] = {&p.X(), &p.Y(), &p.Z()};
                for (int d = 0; d < 3; ++d)
                    *coords[d] = float(rows[d][0] * x + rows[d][1] * y + rows[d][2] * z + rows[d][3]);
            }
        EXPECT_EQ(fieldsOf(moved), fieldsOf(expected));
    }
}

TEST(RigidSurfaces, EverySegmentIsTakenForEveryOther) {
    Segment const start, other = chanceMade<Segment>(6);
    EXPECT_TRUE(start == other);
    EXPECT_FALSE(start != other);
    cow_List<Segment> segments, others(start, start);
    EXPECT_FALSE(segments.IsMember(start));
    segments.AppendUnlessMember(start);
    segments.AppendUnlessMember(other);
    EXPECT_EQ(segments.Length(), 1);
    segments.Append(other);
    EXPECT_EQ(segments.FindMember(other), 0);
    EXPECT_TRUE(segments.IsEqual(others));
    EXPECT_TRUE(segments.Difference(others).IsEmpty());
    segments.RemoveMember(other);
    EXPECT_EQ(textOf(segments[0]), textOf(other)) << "the first one went";
}

// ---- The holder.

shp_ArsDataHolder holderOf(Rigid const * older, Surface const * newer) {
    shp_ArsDataHolder holder;
    if (older)
        holder.oldData = older->Copy();
    if (newer)
        holder.newData = newer->Copy();
    return holder;
}

TEST(SurfaceHolder, ListsTheOlderPairsAndThenThoseOfTheNewerSegments) {
    constexpr int pairsOfType[] = {1, 1, 2, 2};
    for (unsigned int seed = 0; seed < 50; ++seed) {
        Rigid const older = chanceMade<Rigid>(seed);
        Surface newer = chanceMade<Surface>(seed + 1000);
        for (int i = 0; i < newer.profile.Length(); ++i) // enough points for any type
            newer.profile.Get(i).data.Fill(2, g3d_Point(float(i), 0, 0));
        if (!newer.profile.IsEmpty())
            newer.profile.Get(0).type = Segment::TypeEnm(4); // and one of a type that there is not

        Texts fromOlder, fromNewer;
        for (int i = 0; i < older.dataPairList.Length(); ++i)
            fromOlder.push_back(textOf(older.dataPairList[i]));
        for (int i = 1; i < newer.profile.Length(); ++i) {
            Segment const & segment = newer.profile[i];
            for (int k = 0; k < pairsOfType[segment.type]; ++k)
                fromNewer.push_back(textOf(Pair(segment.data[k], shp_SuppDataPairEnm(int(segment.type)))));
        }
        for (bool const hasOlder : {false, true})
            for (bool const hasNewer : {false, true}) {
                shp_ArsDataHolder const holder = holderOf(hasOlder ? &older : nullptr, hasNewer ? &newer : nullptr);
                EXPECT_EQ(holder.hasValue(), hasOlder || hasNewer);
                if (!holder.hasValue())
                    continue;
                Texts expected = hasOlder ? fromOlder : Texts();
                if (hasNewer)
                    expected.insert(expected.end(), fromNewer.begin(), fromNewer.end());
                cls_xoList<Pair> const pairs = holder.ConstGetDataPairList();
                Texts listed;
                for (int i = 0; i < pairs.Length(); ++i)
                    listed.push_back(textOf(pairs[i]));
                EXPECT_EQ(listed, expected);
                if (hasOlder) {
                    EXPECT_EQ(pairs.uid, older.dataPairList.uid);
                    EXPECT_EQ(fieldsOf(*holder.oldData.ConstGet()), fieldsOf(older)) << "appended to a list of its own";
                } else {
                    EXPECT_FALSE(pairs.uid.IsNull());
                    EXPECT_NE(holder.ConstGetDataPairList().uid, pairs.uid);
                }
            }
    }
}

TEST(SurfaceHolder, EndsTheProcessAtASegmentWithTooFewPoints) {
    Surface surface;
    surface.profile.Append(Segment());
    EXPECT_EXIT(holderOf(nullptr, &surface).ConstGetDataPairList(), testing::KilledBySignal(SIGABRT), "");
    surface.profile.Get(0).data.Append(g3d_Point());
    EXPECT_EQ(holderOf(nullptr, &surface).ConstGetDataPairList().Length(), 1);
    surface.profile.Get(0).type = Segment::CIRCLE;
    EXPECT_EXIT(holderOf(nullptr, &surface).ConstGetDataPairList(), testing::KilledBySignal(SIGABRT), "");
}

/// What ConstGetLocalCoordDef gives, or raises.
std::string localCoord(shp_ArsDataHolder const & holder, int index) {
    try {
        return textOf(holder.ConstGetLocalCoordDef(index));
    } catch (PrimException const & raised) {
        EXPECT_STREQ(raised.SourceFile(), "QVRShpShape/QVRShpShp.m/src/shp_ArsDataHolder");
        return refusalOf(raised);
    }
}

TEST(SurfaceHolder, GivesTheNewerLocalPointsBeforeTheOlderVectors) {
    Rigid older(shp_AnalyticRigidSurf_Cylinder);
    Surface newer;
    for (int i = 0; i < 3; ++i) {
        older.localCoordDef.Get(i) = g3d_Vector(float(i), 1, 2);
        newer.localCoordData.Append(g3d_Point(float(-i), 8, 9));
    }
    newer.localCoordData.Append(g3d_Point(-3, 8, 9)); // one more than the older has
    shp_ArsDataHolder const bothHeld = holderOf(&older, &newer), old = holderOf(&older, nullptr),
                            young = holderOf(nullptr, &newer);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(localCoord(old, i), textOf(g3d_Vector(float(i), 1, 2)));
        EXPECT_EQ(localCoord(bothHeld, i), textOf(g3d_Vector(float(-i), 8, 9)));
    }
    EXPECT_EQ(localCoord(young, 3), textOf(g3d_Vector(-3, 8, 9)));
    EXPECT_EQ(localCoord(young, 5), "localcoord data requested for 5 when size is 4 @72");
    struct {
        shp_ArsDataHolder const & holder;
        int index;
    } const fatal[] = {{old, -1}, {old, 3}, {old, 4}, {young, -1}, {young, 4}, {bothHeld, 3}, {bothHeld, 5}};
    for (auto const & [holder, index] : fatal)
        EXPECT_EXIT(localCoord(holder, index), testing::KilledBySignal(SIGABRT), "") << index;
}

TEST(SurfaceHolder, RaisesWithoutASurface) {
    shp_ArsDataHolder const holder;
    std::string const text = "ARS data does not have a valid old/new representation";
    EXPECT_EQ(localCoord(holder, 0), text + " @61");
    try {
        holder.ConstGetDataPairList();
        ADD_FAILURE() << "nothing raised";
    } catch (PrimException const & raised) {
        EXPECT_EQ(refusalOf(raised), text + " @17");
    }
}

} // namespace
