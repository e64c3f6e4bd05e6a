// What is stored is read back, in memory and through bytes; what is damaged is refused.

#include "memory_refusals.h"
#include "stored_objects.h"

#include "cls_TypeAdapter.h"
#include "cls_xo1DArrayList.h"
#include "gsl_Point.h"
#include "nex_PrimException.h"
#include "odiC_Exception.h"
#include "omu_PrimTuple.h"
#include "typ_ArchCompTable.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <set>

namespace {

using Store = cls_MemoryStore;
using Bytes = Store::ByteArray;
using Failure = nex_PrimException<atr_String, 1>;

std::string readingRaises(Store const & store) {
    return raisedBy([&] { AnyObject(cls_ReadVisitor(store)); });
}

/// An object of each class that can be read.
std::vector<Store> samples() {
    float const infinite = std::numeric_limits<float>::infinity();
    g3d_Point point(-0.0f, std::nanf(""), 0.5f);
    point.W() = 2;
    uti_CoordCont3D coords;
    coords.SetCoord(1, infinite, -1, 0.25f);
    gsl_Point precise(0.1, -1e300, 5e-324);
    precise.uid.NewUid();
    omu_PrimTuple tuple('[');
    tuple.Put(3);
    tuple.Put("text");
    tuple.Put(omu_PrimTuple('('));
    odiC_Exception error(11, "S", "T", 1, 2, 3, 4, 5, 6);
    error.SetTraceback("line 1");
    nex_CommandException command;
    command.SetTraceback("line 2");
    return {stored(point),          stored(g3d_Vector(1, -infinite, 0.5f)),
            stored(precise),        stored(uti_Coord3D(0.5f, 2, -3)),
            stored(coords),         stored(tuple),
            stored(command),        stored(error),
            stored(olderSurface()), stored(olderSurface().dataPairList[0]),
            stored(surface()),      stored(surface().profile[1])};
}

TEST(Persistence, EveryClassIsReadBackByItsNumberAlone) {
    std::set<unsigned int> classes;
    for (Store const & store : samples()) {
        std::string const text = ArchiveText(store).text;
        Store const kept = fromBytes(store.Bytes());
        EXPECT_EQ(kept.Bytes(), store.Bytes());
        AnyObject const object{cls_ReadVisitor(kept)};
        EXPECT_EQ(bytesOf(object), store.Bytes()) << text;
        Store twice;
        {
            cls_WriteVisitor const pass(twice);
            object.DBWrite(pass);
            object.DBWrite(pass);
        }
        EXPECT_EQ(&twice[0] == &twice[1], !kept[0].uid.IsNull()) << text;
        classes.insert(kept[0].classNumber);
    }
    for (int i = 0; i < registrar().Length(); ++i) {
        cls_ClassMetadata const & each = registrar()[i];
        EXPECT_TRUE(registrar().Find(each.TypeNumber()) == &each && registrar().Find(each.Name().CStr()) == &each);
        bool const isPart = each.Name().Find("omu_Prim") == 0 || each.Name() == "nex_Exception";
        EXPECT_TRUE(isPart || each.TypeNumber() == cls_ClassNumber_LIST || classes.contains(each.TypeNumber()))
            << each.Name().CStr() << " has no sample";
    }
}

TEST(Persistence, ClassesAndComponentsHaveTheNumbersThatArchivesKnow) {
    constexpr struct {
        unsigned int number;
        int version;
        unsigned int base, row;
    } known[] = {{0x2a40001, 800, 0x1f0003, 0x2a40001},
                 {0x33f0001, 203, 1, 0x33f0001},
                 {0x33f0002, 203, 1, 0x33f0002},
                 {0x33f0003, 1011, 1, 0x33f0003},
                 {0x33f0005, 1011, 1, 0x33f0004}}; // the one whose number is not its row's
    for (auto const & [number, version, base, row] : known) {
        cls_ClassMetadata const & metadata = *registrar().Find(number);
        auto const & entry = *typ_ArchCompTable::FindRow(row);
        EXPECT_TRUE(metadata.Version() == version && metadata.Base() == base && metadata.Name() == entry.name) << row;
        EXPECT_TRUE(entry.reference == base && entry.kind == (base == 1 ? 7u : 4u)) << row;
    }
    for (auto const & [row, reference] :
         {std::pair(0x33f0007u, 0x33f0007u), {0x33f000au, 0x33f000au}, {0x2a40000u, 1u}, {0x33f0000u, 0u}})
        EXPECT_EQ(typ_ArchCompTable::FindRow(row)->reference, reference);
    EXPECT_EQ(typ_ArchCompTable::FindRow(0x2a50000), nullptr);
}

enum Oddity { none, missing, mistyped };

/// An object that has nothing but the enumerations of a sample; of its attribute number `odd`, nothing or a wrong type.
Store sparse(Store::Object const & sample, int odd = -1, Oddity oddity = none) {
    Store store;
    cls_WriteVisitor const writer(store);
    writer.StartWrite(sample.classNumber, cls_Uid());
    cls_ClassMetadata const & metadata = *registrar().Find(sample.classNumber);
    for (int i = 0; i < metadata.NumAttributes(); ++i) {
        auto const & [name, number, type, typeNumber, flag] = metadata.GetAttribute(i);
        if (i == odd && oddity == mistyped)
            type == cls_AttributeType_INT ? writer.Write(name.CStr(), 1.5) : writer.Write(name.CStr(), 1);
        else if (i != odd && type == cls_AttributeType_ENUM)
            writer.Write(name.CStr(), std::get<cow_String>(sample.attributes[static_cast<std::size_t>(i)].value));
    }
    return store;
}

// Two lines for each sample: what the archive has of it, and what is read when nothing but the enumerations is there.
TEST(Persistence, ArchivesAndDefaultsAreAsTheyWere) {
    std::string texts;
    for (Store const & store : samples())
        texts += ArchiveText(store).text + '\n' + textOf(AnyObject(cls_ReadVisitor(sparse(store[0])))) + "\n\n";
    std::ifstream file(STORED_SAMPLES);
    EXPECT_EQ(texts, std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(Persistence, AttributesAreAsDescribedAndHaveDefaultsAndNoOtherTypeIsTakenForThem) {
    for (Store const & store : samples()) {
        SCOPED_TRACE(ArchiveText(store).text);
        Store::Object const & object = store[0];
        cls_ClassMetadata const & metadata = *registrar().Find(object.classNumber);
        std::size_t next = metadata.Base() == cls_ClassNumber_ROOT ? 0 : 1; // behind the part of the base class
        ASSERT_EQ(object.attributes.size(), next + static_cast<std::size_t>(metadata.NumAttributes()));
        for (int i = 0; i < metadata.NumAttributes(); ++i, ++next) {
            auto const & [name, number, type, typeNumber, flag] = metadata.GetAttribute(i);
            auto const & [writtenName, value] = object.attributes[next];
            auto const * const part = std::get_if<Store::ObjectIndex>(&value);
            bool const isEnum = name == "type" || name == "dataType" || name == "surfaceType";
            EXPECT_TRUE(writtenName == name && number == (metadata.Version() == 203 ? -1 : i)) << name.CStr();
            EXPECT_EQ(type, isEnum ? cls_AttributeType_ENUM : object.attributes[next].Type()) << name.CStr();
            EXPECT_EQ(typeNumber, part ? store.At(*part).classNumber : 1);
            EXPECT_EQ(flag, typeNumber == cls_ClassNumber_LIST);
            if (isEnum) { // has no default
                EXPECT_EQ(
                    readingRaises(sparse(object, i, missing)).find("2: omu_PrimEnum(const cow_String&) - str not"), 0u);
            }
            std::string const begin =
                std::string("1: Attribute ") + name.CStr() + " of class " + metadata.Name().CStr() + " is of type ";
            EXPECT_EQ(readingRaises(sparse(object, i, mistyped)).find(begin), 0u) << name.CStr();
        }
    }
    Store const point = stored(g3d_Point());
    EXPECT_THROW(g3d_Vector{cls_ReadVisitor(point)}, Failure);
    EXPECT_THROW(cls_xoList<g3d_Point>{cls_ReadVisitor(point)}, Failure);
    EXPECT_THROW(cls_ReadVisitor(point, 1), Failure);
    EXPECT_THROW(cls_ReadVisitor(point, -1), Failure);
}

TEST(Persistence, AnObjectIsStoredOnceInAPassAndReadWhereverItIsMet) {
    shp_AnalyticSurface const original = surface();
    shp_AnalyticSurface many = original;
    many.profile.Append(original.profile[0]);
    many.profile.Get(2).type = shp_AnalyticSurfaceSegment::PARABOLA;
    Store const store = stored(many);
    EXPECT_EQ(store.NumObjects(), stored(original).NumObjects());
    many.profile.Get(2) = many.profile[0];
    EXPECT_EQ(textOf(shp_AnalyticSurface(cls_ReadVisitor(store))), textOf(many)) << "a changed copy is its original";

    Store passes;
    {
        cls_WriteVisitor const pass(passes);
        original.DBWrite(pass);
        EXPECT_EQ(pass.StartWrite(original.TypeId(), original.uid), 0);
        for (cls_Uid const & uid : {original.uid, cls_Uid(), cls_Uid()})
            EXPECT_EQ(pass.StartWrite(g3d_Point::TypeId(), uid), 1) << "another class, or no identity";
    }
    original.DBWrite(cls_WriteVisitor(passes));
    Store const kept = fromBytes(passes.Bytes());
    EXPECT_TRUE(kept.Length() == 6 && &kept[0] == &kept[1] && &kept[0] != &kept[5]);
    EXPECT_EQ(shp_AnalyticSurface(cls_ReadVisitor(kept, 5)).name, "punch");
}

TEST(Persistence, ListsKeepOrderAndIdentity) {
    cow_List<g3d_Point> points;
    for (int i = 0; i < 100; ++i)
        points.Append(g3d_Point(static_cast<float>(i), 0, 0));
    cls_xoList<g3d_Point> const list = cls_xoListFromCow(points);
    EXPECT_FALSE(list.uid.IsNull());
    Store const store = stored(list);
    cls_ReadVisitor const reader(store);
    cls_Uid const whole = cls_Uid::AllocateUid();
    cls_xo1DArrayList<g3d_Point> const read(reader, &whole), copy(read);
    EXPECT_TRUE(bytesOf(read) == store.Bytes() && bytesOf(copy) == store.Bytes());
    EXPECT_TRUE(read.Parent() == &whole && copy.Parent() == nullptr);
    EXPECT_TRUE(reader.NumElements() == 100 && !reader.Element(-1).HasObject() && !reader.Element(100).HasObject());

    Store const parts = stored(surface());
    shp_AnalyticSurface const made{cls_ReadVisitor(parts)};
    EXPECT_TRUE(made.profile.Parent() == &made.uid && made.localCoordData.Parent() == &made.uid);
    std::set<cls_Uid> given{cls_Uid()};
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(given.insert(cls_Uid::AllocateUid()).second);
}
/// Writes an object in an object in an object ... and `width` references to each in the one around it.
void writeTower(cls_WriteVisitor const & writer, int height, int width) {
    writer.StartWrite(cls_ClassNumber_LIST, cls_Uid(1, static_cast<std::uint64_t>(height)));
    for (int i = 0; height > 0 && i < width; ++i) {
        cls_WriteRequestListObj const request(writer);
        cls_WriteVisitor const element(request);
        if (i == 0)
            writeTower(element, height - 1, width);
        else
            EXPECT_EQ(element.StartWrite(cls_ClassNumber_LIST, cls_Uid(1, static_cast<std::uint64_t>(height - 1))), 0);
    }
}

int readTower(cls_ReadVisitor const & reader) {
    return reader.NumElements() == 0 ? 0 : 1 + readTower(reader.Element(0));
}

TEST(Persistence, WhatCouldNotBeReadIsNotWritten) {
    Store deep;
    writeTower(cls_WriteVisitor(deep), 200, 1);
    EXPECT_EQ(readTower(cls_ReadVisitor(deep)), 200);
    EXPECT_EQ(fromBytes(deep.Bytes()).NumObjects(), 201);
    EXPECT_THROW(writeTower(cls_WriteVisitor(deep), 201, 1), Failure);

    Store wide;
    writeTower(cls_WriteVisitor(wide), 4, 10);
    {
        cls_WriteVisitor const pass(wide);
        for (int i = 0; i < 5000; ++i)
            pass.StartWrite(cls_ClassNumber_LIST, cls_Uid(1, 1));
    }
    EXPECT_EQ(fromBytes(wide.Bytes()).Length(), 5001);
    writeTower(cls_WriteVisitor(wide), 60, 10);
    EXPECT_THROW(wide.Bytes(), Failure) << "ten to the power of sixty objects";

    shp_AnalyticSurface partOfItself = surface();
    partOfItself.profile.uid.NewUid();
    partOfItself.profile.Get(1).data.uid = partOfItself.profile.uid;
    EXPECT_THROW(stored(partOfItself), Failure);

    Store store; // two visitors at once, so that each object becomes a part of the other
    cls_WriteVisitor const writer(store);
    EXPECT_THROW(writer.Write("early", 1), Failure);
    EXPECT_THROW(writer.CheckCollectionType(1), Failure);
    writer.StartWrite(7, cls_Uid());
    EXPECT_THROW(writer.CheckCollectionType(1), Failure);
    EXPECT_THROW(cls_WriteVisitor(writer, 8u).StartWrite(9, cls_Uid()), Failure);
    EXPECT_THROW(cls_WriteVisitor(cls_WriteRequestListObj(writer)).StartWrite(9, cls_Uid()), Failure);
    cls_WriteVisitor const first(writer, "first"), second(writer, "second");
    first.StartWrite(7, cls_Uid(1, 1));
    second.StartWrite(7, cls_Uid(1, 2));
    EXPECT_EQ(cls_WriteVisitor(first, "other").StartWrite(7, cls_Uid(1, 2)), 0);
    EXPECT_EQ(cls_WriteVisitor(second, "other").StartWrite(7, cls_Uid(1, 1)), 0);
    EXPECT_THROW(store.Bytes(), Failure);
    std::function<void(cls_ReadVisitor const &)> const descend = [&](cls_ReadVisitor const & reader) {
        descend(cls_ReadVisitor(reader, "other"));
    };
    EXPECT_THROW(descend(cls_ReadVisitor(cls_ReadVisitor(store), "first")), Failure);
}

TEST(Persistence, DamagedBytesAreRefused) {
    for (Store const & store : samples()) {
        Bytes damaged = store.Bytes();
        for (unsigned char & byte : damaged)
            for (int const flipped : {0x01, 0x10, 0x80, 0xff}) {
                byte = static_cast<unsigned char>(byte ^ flipped);
                ASSERT_THROW(fromBytes(damaged), Failure) << &byte - damaged.data();
                byte = static_cast<unsigned char>(byte ^ flipped);
            }
        for (; !damaged.empty(); damaged.pop_back())
            ASSERT_THROW(Store(damaged.data(), damaged.size() - 1), Failure) << damaged.size();
    }
    EXPECT_EQ(fromBytes(Store().Bytes()).Length(), 0);
}

/// Makes the checksum fit.
Bytes repaired(Bytes bytes) {
    std::uint32_t crc = ~0u;
    for (std::size_t i = 16; i < bytes.size(); ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xedb88320u : 0u);
    }
    for (std::size_t i = 0; i < 4; ++i)
        bytes[12 + i] = static_cast<unsigned char>(~crc >> 8 * i);
    return bytes;
}

TEST(Persistence, BytesThatNoArchiveGivesAreRefusedWhateverTheirChecksum) {
    Bytes const bytes = bytesOf(olderSurface());
    EXPECT_EQ(repaired(bytes), bytes);
    Bytes longer = bytes, withZero = bytes;
    longer.push_back(0);
    constexpr unsigned char name[] = {'d', 'i', 'e'};
    *std::search(withZero.begin(), withZero.end(), std::begin(name), std::end(name)) = 0;
    EXPECT_THROW(fromBytes(repaired(longer)), Failure);
    EXPECT_THROW(fromBytes(repaired(withZero)), Failure);
}

TEST(Persistence, NothingIsLostOrLeakedWhenMemoryRunsOut) {
    for (Store const & store : samples()) {
        Bytes const bytes = store.Bytes();
        AnyObject const object{cls_ReadVisitor(store)};
        std::function<void()> const works[] = {[&] { AnyObject(cls_ReadVisitor(store)); }, [&] { stored(object); },
                                               [&] { fromBytes(bytes); }, [&] { store.Bytes(); }};
        for (auto const & work : works)
            EXPECT_GT(refuseEachAllocation(work, [] {}), 0) << ArchiveText(store).text;
        EXPECT_EQ(store.Bytes(), bytes);
    }
}

TEST(Persistence, ADescriptionIsReplacedAndRefusesWhatItHasNoMeansFor) {
    int const numClasses = registrar().Length();
    registrar().initClassMetadata(
        [](cls_ClassRegistrar & classes) {
            classes.AddClassMD(new cls_TypeAdapter<odiC_Exception>("Error", odiC_Exception::TypeId(), 9, nullptr, 1));
        },
        2);
    EXPECT_TRUE(registrar().Find(odiC_Exception::TypeId())->Version() == 9 && !registrar().Find("odiC_Exception"));
    registrar().initClassMetadata(odiC_Exception::InitializeMetadata, 2);
    EXPECT_EQ(registrar().Length(), numClasses);

    Store store;
    cls_WriteVisitor(store).StartWrite(omu_Primitive::TypeId(), cls_Uid());
    EXPECT_NE(readingRaises(store).find("omu_Primitive"), std::string::npos) << "abstract";
    EXPECT_THROW(registrar().Find("odiC_Exception")->DeleteCow(nullptr), Failure);
    cls_ClassMetadata const plain("Plain", 0x70010001, 1, nullptr, 1);
    EXPECT_THROW(plain.DBWrite(&store, cls_WriteVisitor(store)), Failure);
    EXPECT_THROW(plain.Delete(&store), Failure);
    EXPECT_NO_THROW(plain.Delete(nullptr));
    cls_WriteVisitor(store).StartWrite(0x70010001, cls_Uid());
    cls_ReadVisitor unknown(store, 1), nothing(unknown, "absent");
    for (cls_ReadVisitor * const reader : {&unknown, &nothing})
        EXPECT_THROW(registrar().Construct(*reader), Failure);
    EXPECT_THROW(plain.Ctor(unknown), Failure);
    auto const itself = [](cls_ReadVisitor & reader) -> void * { return &reader; };
    EXPECT_EQ(cls_ClassMetadata("Own", 0x70010002, 1, itself, 1).Ctor(unknown), &unknown);
}

} // namespace
