// What is stored is read back, in memory and through bytes; what is damaged is refused.

#include "cls_MemoryStore.h"
#include "cls_MetadataRegistrar.h"
#include "cls_TypeAdapter.h"
#include "cls_xo1DArrayList.h"
#include "g3d_Vector.h"
#include "gsl_Point.h"
#include "memory_refusals.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "odiC_Exception.h"
#include "omu_PrimTuple.h"
#include "shp_AnalyticRigidSurfaceData.h"
#include "shp_AnalyticSurface.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <set>
#include <string>

namespace {

using Store = cls_MemoryStore;
using Bytes = Store::ByteArray;
using Failure = nex_PrimException<atr_String, 1>;

cls_MetadataRegistrar & registrar() {
    return omi_Singleton<cls_MetadataRegistrar>::Instance();
}

/// Some object, known by its class number alone.
class AnyObject {
public:
    explicit AnyObject(cls_ReadVisitor reader)
        : object(registrar().Construct(reader)), metadata(registrar().Find(reader.GetTypeNumber())) {}
    ~AnyObject() { metadata->Delete(object); }
    AnyObject(AnyObject const &) = delete;
    AnyObject & operator=(AnyObject const &) = delete;

    Store Stored() const {
        Store store;
        metadata->DBWrite(object, cls_WriteVisitor(store));
        return store;
    }

private:
    void * object;
    cls_ClassMetadata const * metadata;
};

template <class T> Store stored(T const & object) {
    Store store;
    object.DBWrite(cls_WriteVisitor(store));
    return store;
}

Store fromBytes(Bytes const & bytes) {
    return Store(bytes.data(), bytes.size());
}

shp_AnalyticSurfaceSegment segment(shp_AnalyticSurfaceSegment::TypeEnm type, float x) {
    shp_AnalyticSurfaceSegment made;
    made.type = type;
    made.data.Append(g3d_Point(x, 2, 3));
    return made;
}

shp_AnalyticSurface surface() {
    shp_AnalyticSurface made;
    made.type = shp_AnalyticSurface::REVOLUTION;
    made.filletRadius = 0.5;
    made.profile.Append(segment(shp_AnalyticSurfaceSegment::START, 1));
    made.profile.Append(segment(shp_AnalyticSurfaceSegment::LINE, 7));
    made.profile.Get(0).uid.NewUid();
    made.localCoordData.Append(g3d_Point(0, 0, 1));
    made.name = "punch";
    made.uid.NewUid();
    return made;
}

/// One object of each class that can be read.
std::vector<Store> samples() {
    float const infinite = std::numeric_limits<float>::infinity();
    g3d_Point point(-0.0f, std::nanf(""), 3e-45f);
    point.W() = 2;
    uti_CoordCont3D coords;
    coords.SetCoord(2, infinite, -1, 0.1f);
    gsl_Point precise(0.1, -1e300, 5e-324);
    precise.uid.NewUid();
    shp_AnalyticRigidSurfaceData data;
    data.dataPairList.Append(shp_SuppDataPair(g3d_Point(1, 2, 3), shp_SuppDataPair_Line));
    data.meshIndex = std::numeric_limits<int>::min();
    omu_PrimTuple tuple('(');
    tuple.Put(3);
    tuple.Put("text");
    tuple.Put(tuple);
    odiC_Exception error(11, "S", "\xc3\xa4", 1, 2, 3, 4, 5, 6);
    error.SetTraceback("line 1");
    nex_CommandException command;
    command.SetTraceback("line 2");
    return {stored(point),     stored(g3d_Vector(1, -infinite, 0.1f)),
            stored(precise),   stored(uti_Coord3D(0.1f, 2, -3)),
            stored(coords),    stored(tuple),
            stored(command),   stored(error),
            stored(data),      stored(data.dataPairList[0]),
            stored(surface()), stored(surface().profile[0])};
}

/// Calls `visit` with every object of an archive.
void forEachObject(Store const & store, std::function<void(Store::Object const &)> const & visit) {
    for (int i = 0; i < store.NumObjects(); ++i)
        visit(store.At({i}));
}

TEST(Persistence, EveryClassIsReadBackByItsNumberAlone) {
    std::set<unsigned int> classes;
    for (Store const & sample : samples()) {
        Bytes const bytes = sample.Bytes();
        Store const kept = fromBytes(bytes);
        EXPECT_EQ(kept.Bytes(), bytes);
        EXPECT_EQ(AnyObject(cls_ReadVisitor(kept)).Stored().Bytes(), bytes) << kept[0].classNumber;
        classes.insert(kept[0].classNumber);
    }
    for (int i = 0; i < registrar().Length(); ++i) {
        cls_ClassMetadata const & each = registrar()[i];
        EXPECT_EQ(registrar().Find(each.TypeNumber()), &each);
        EXPECT_EQ(registrar().Find(each.Name().CStr()), &each);
        EXPECT_TRUE(each.Base() == cls_ClassNumber_ROOT || registrar().Find(each.Base())) << each.Name().CStr();
        bool const isPart = each.Name().Find("omu_Prim") == 0 || each.Name() == "nex_Exception";
        EXPECT_TRUE(isPart || each.TypeNumber() == cls_ClassNumber_LIST || classes.contains(each.TypeNumber()))
            << each.Name().CStr() << " has no sample";
    }
}

/// An enumeration is stored as a string.
cls_AttributeType storedAs(cls_AttributeType type) {
    return type == cls_AttributeType_ENUM ? cls_AttributeType_STRING : type;
}

TEST(Persistence, ObjectsAreWrittenAsTheirDescriptionsSay) {
    for (Store const & sample : samples())
        forEachObject(sample, [&](Store::Object const & object) {
            cls_ClassMetadata const * const metadata = registrar().Find(object.classNumber);
            ASSERT_NE(metadata, nullptr);
            if (object.classNumber == cls_ClassNumber_LIST || object.classNumber == cls_ClassNumber_omu_Primitive)
                return;
            std::size_t next = 0;
            if (metadata->Base() != cls_ClassNumber_ROOT) {
                auto const & base = object.attributes.at(next++);
                EXPECT_TRUE(base.name.Empty());
                EXPECT_EQ(sample.At(std::get<Store::ObjectIndex>(base.value)).classNumber, metadata->Base());
            }
            ASSERT_EQ(object.attributes.size(), next + static_cast<std::size_t>(metadata->NumAttributes()));
            for (int i = 0; i < metadata->NumAttributes(); ++i, ++next) {
                cls_AttributeMetadata const & described = metadata->GetAttribute(i);
                EXPECT_EQ(object.attributes[next].name, described.name);
                EXPECT_EQ(object.attributes[next].Type(), storedAs(described.type)) << described.name.CStr();
                if (auto const * const part = std::get_if<Store::ObjectIndex>(&object.attributes[next].value)) {
                    EXPECT_EQ(sample.At(*part).classNumber, described.typeNumber) << described.name.CStr();
                    EXPECT_EQ(described.flag, described.typeNumber == cls_ClassNumber_LIST);
                }
            }
        });
}

/// Writes a copy of an archive with one attribute changed, the one with the number `target` of all that have a name.
class Rewriting {
public:
    enum Change { dropped, mistyped, misclassed };

    Rewriting(Store const & original, int targetNumber, Change wanted)
        : source(original), target(targetNumber), change(wanted) {
        write(cls_WriteVisitor(result), source[0]);
    }

    Store result;
    Store::Object const * changed = nullptr; ///< the object whose attribute it is; null when there are fewer
    cow_String name;

private:
    void write(cls_WriteVisitor const & writer, Store::Object const & object) {
        writer.StartWrite(object.classNumber, object.uid);
        for (Store::Attribute const & each : object.attributes) {
            auto const * const part = std::get_if<Store::ObjectIndex>(&each.value);
            if (each.name.Empty() && object.classNumber == cls_ClassNumber_LIST)
                write(cls_WriteVisitor(cls_WriteRequestListObj(writer)), source.At(*part));
            else if (each.name.Empty())
                write(cls_WriteVisitor(writer, source.At(*part).classNumber), source.At(*part));
            else if (next++ == target)
                writeChanged(writer, object, each);
            else if (part != nullptr)
                write(cls_WriteVisitor(writer, each.name.CStr()), source.At(*part));
            else
                std::visit([&](auto const & value) { writeValue(writer, each.name.CStr(), value); }, each.value);
        }
    }
    void writeChanged(cls_WriteVisitor const & writer, Store::Object const & object, Store::Attribute const & each) {
        changed = &object;
        name = each.name;
        if (change == misclassed && each.Type() == cls_AttributeType_OBJECT)
            cls_WriteVisitor(writer, name.CStr()).StartWrite(odiC_Exception::TypeId(), cls_Uid());
        else if (change != dropped && each.Type() == cls_AttributeType_INT)
            writer.Write(name.CStr(), 1.5);
        else if (change != dropped)
            writer.Write(name.CStr(), 1);
    }
    static void writeValue(cls_WriteVisitor const & writer, char const * field, auto const & value) {
        writer.Write(field, value);
    }
    static void writeValue(cls_WriteVisitor const &, char const *, Store::ObjectIndex) {}

    Store const & source;
    int target;
    Change change;
    int next = 0;
};

/// Calls `check` for each attribute of each sample with the archive in which it is changed.
void forEachAttribute(Rewriting::Change change, std::function<void(Rewriting const &, Store const &)> const & check) {
    for (Store const & sample : samples())
        for (int target = 0;; ++target) {
            Rewriting const rewriting(sample, target, change);
            if (rewriting.changed == nullptr)
                break;
            SCOPED_TRACE(rewriting.name.CStr());
            check(rewriting, sample);
        }
}

bool isEmptyOrZero(Store const & store, Store::Attribute const & attribute) {
    struct {
        Store const & store;
        bool operator()(int value) const { return value == 0; }
        bool operator()(double value) const { return value == 0; }
        bool operator()(cow_String const & value) const { return value.Empty(); }
        bool operator()(Store::ObjectIndex part) const {
            Store::Object const & object = store.At(part);
            for (Store::Attribute const & each : object.attributes)
                if (each.name != "w" && !isEmptyOrZero(store, each))
                    return false;
            return object.uid.IsNull();
        }
    } const isEmpty{store};
    return std::visit(isEmpty, attribute.value);
}

TEST(Persistence, AMissingAttributeIsReadAsItsDefault) {
    forEachAttribute(Rewriting::dropped, [](Rewriting const & rewriting, Store const &) {
        bool const isEnumeration = rewriting.name == "type" || rewriting.name == "dataType" ||
                                   rewriting.name == "surfaceType" || rewriting.name == "kind";
        bool const isInPair = rewriting.name == "value"; // of a tuple's element, whose kind says what it is
        if (isEnumeration) {
            EXPECT_THROW(AnyObject(cls_ReadVisitor(rewriting.result)), nex_CommandException);
            return;
        }
        Store const again = AnyObject(cls_ReadVisitor(rewriting.result)).Stored();
        int found = 0;
        forEachObject(again, [&](Store::Object const & object) {
            for (Store::Attribute const & each : object.attributes)
                if (object.classNumber == rewriting.changed->classNumber && each.name == rewriting.name)
                    found += isEmptyOrZero(again, each) || (each.name == "w" && std::get<double>(each.value) == 1) ||
                             (each.name == "bracket" && std::get<cow_String>(each.value) == "(") || isInPair;
        });
        EXPECT_GE(found, 1);
    });
}

void expectNamed(Failure const & failure, Rewriting const & rewriting) {
    std::string const message = failure.UserReport(QVRBasStringMode()).CStr();
    EXPECT_NE(message.find(rewriting.name.CStr()), std::string::npos) << message;
    cow_String const className = registrar().Find(rewriting.changed->classNumber)->Name();
    EXPECT_NE(message.find(className.CStr()), std::string::npos) << message;
}

TEST(Persistence, AWrongTypeIsRefusedWithClassAndAttribute) {
    for (Rewriting::Change const change : {Rewriting::mistyped, Rewriting::misclassed})
        forEachAttribute(change, [](Rewriting const & rewriting, Store const &) {
            try {
                AnyObject const object{cls_ReadVisitor(rewriting.result)};
                ADD_FAILURE() << "was read";
            } catch (Failure const & failure) {
                expectNamed(failure, rewriting);
            }
        });
    Store const point = stored(g3d_Point());
    EXPECT_THROW(g3d_Vector{cls_ReadVisitor(point)}, Failure);
    EXPECT_THROW(cls_ReadVisitor(point, 1), Failure);
    EXPECT_THROW(cls_ReadVisitor(point, -1), Failure);
}

TEST(Persistence, AnObjectIsStoredOnceInAPassAndReadWhereverItIsMet) {
    shp_AnalyticSurface const original = surface();
    shp_AnalyticSurface many = original;
    many.profile.Append(original.profile[0]);
    many.profile.Get(2).type = shp_AnalyticSurfaceSegment::PARABOLA;
    Store const store = stored(many);
    shp_AnalyticSurface const read{cls_ReadVisitor(store)};
    ASSERT_EQ(read.profile.Length(), 3) << "segments without identity are stored each";
    EXPECT_EQ(read.profile[1].data[0].X(), 7);
    EXPECT_EQ(read.profile[2].type, shp_AnalyticSurfaceSegment::START) << "a changed copy is its original";
    EXPECT_EQ(read.profile[2].data[0].X(), 1);
    EXPECT_EQ(store.NumObjects(), stored(original).NumObjects());

    Store passes;
    {
        cls_WriteVisitor const pass(passes);
        original.DBWrite(pass);
        EXPECT_EQ(pass.StartWrite(original.TypeId(), original.uid), 0);
        EXPECT_EQ(pass.StartWrite(g3d_Point::TypeId(), original.uid), 1) << "another class";
        EXPECT_EQ(pass.StartWrite(g3d_Point::TypeId(), cls_Uid()), 1);
        EXPECT_EQ(pass.StartWrite(g3d_Point::TypeId(), cls_Uid()), 1);
    }
    original.DBWrite(cls_WriteVisitor(passes));
    ASSERT_EQ(passes.Length(), 6);
    EXPECT_EQ(&passes[0], &passes[1]);
    EXPECT_NE(&passes[0], &passes[5]);
    Store const kept = fromBytes(passes.Bytes());
    EXPECT_EQ(&kept[0], &kept[1]);
    EXPECT_EQ(shp_AnalyticSurface(cls_ReadVisitor(kept, 5)).name, "punch");
}

TEST(Persistence, ListsKeepOrderAndIdentity) {
    cow_List<g3d_Point> points;
    for (int i = 0; i < 100; ++i)
        points.Append(g3d_Point(static_cast<float>(i), 0, 0));
    cls_xoList<g3d_Point> const list = cls_xoListFromCow(points);
    EXPECT_FALSE(list.uid.IsNull());
    Store const store = stored(list);
    cls_Uid const whole = cls_Uid::AllocateUid();
    cls_xo1DArrayList<g3d_Point> const read(cls_ReadVisitor(store), &whole);
    EXPECT_EQ(read.uid, list.uid);
    EXPECT_EQ(read.Parent(), &whole);
    EXPECT_EQ(cls_xo1DArrayList<g3d_Point>(read).Parent(), nullptr);
    ASSERT_EQ(read.Length(), 100);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(read[i].X(), points[i].X());
    EXPECT_THROW(cls_xoList<g3d_Vector>{cls_ReadVisitor(store)}, Failure);
    EXPECT_FALSE(cls_ReadVisitor(store).Element(-1).HasObject());
    EXPECT_FALSE(cls_ReadVisitor(store).Element(100).HasObject());
}

TEST(Persistence, AnIdentityIsGivenOnce) {
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
    EXPECT_EQ(fromBytes(wide.Bytes()).NumObjects(), 5);
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

    cls_ReadVisitor unknown(store);
    EXPECT_THROW(registrar().Construct(unknown), Failure);
    cls_ReadVisitor nothing(unknown, "absent");
    EXPECT_THROW(registrar().Construct(nothing), Failure);
}

TEST(Persistence, DamagedBytesAreRefused) {
    for (Store const & sample : samples()) {
        Bytes const bytes = sample.Bytes();
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            Bytes const cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
            ASSERT_THROW(fromBytes(cut), Failure) << length;
        }
        Bytes damaged = bytes;
        for (unsigned char & byte : damaged)
            for (int const flipped : {0x01, 0x10, 0x80, 0xff}) {
                byte = static_cast<unsigned char>(byte ^ flipped);
                ASSERT_THROW(fromBytes(damaged), Failure) << &byte - damaged.data();
                byte = static_cast<unsigned char>(byte ^ flipped);
            }
        damaged.push_back(0);
        EXPECT_THROW(fromBytes(damaged), Failure);
    }
    EXPECT_EQ(fromBytes(Store().Bytes()).Length(), 0);
}

TEST(Persistence, NothingIsLostOrLeakedWhenMemoryRunsOut) {
    for (Store const & sample : samples()) {
        Bytes const bytes = sample.Bytes();
        auto const keeps = [&] { ASSERT_EQ(sample.Bytes(), bytes); };
        EXPECT_GT(refuseEachAllocation([&] { AnyObject(cls_ReadVisitor(sample)).Stored(); }, keeps), 0);
        EXPECT_GT(refuseEachAllocation([&] { fromBytes(bytes); }, [] {}), 0);
        EXPECT_GT(refuseEachAllocation([&] { sample.Bytes(); }, keeps), 0);
    }
}

/// A class of somebody else's, derived from one that is never made by itself.
struct Shape {
    virtual ~Shape() = default;
    virtual void DBWrite(cls_WriteVisitor const & writer) const = 0;
};
struct Circle final : Shape {
    explicit Circle(cls_ReadVisitor const & reader) : radius(reader.Read("radius", 1.0)) {}
    void DBWrite(cls_WriteVisitor const & writer) const override {
        if (writer.StartWrite(0x70010002, cls_Uid()) != 0)
            writer.Write("radius", radius);
    }
    double radius;
};

TEST(Persistence, ClassesOfOthersAreRegisteredAndReplaced) {
    Store store;
    {
        cls_WriteVisitor const writer(store);
        writer.StartWrite(0x70010002, cls_Uid());
        writer.Write("radius", 2.0);
    }
    int const before = registrar().Length();
    for (int version = 1; version <= 2; ++version) {
        static int current;
        current = version;
        registrar().initClassMetadata(
            [](cls_ClassRegistrar & classes) {
                classes.AddClassMD(new cls_AbsTypeAdapter<Shape>("Shape", 0x70010001, current, nullptr, 1));
                auto * const circle = new cls_TypeAdapter<Circle>("Circle", 0x70010002, current, nullptr, 0x70010001);
                classes.AddClassMD(circle);
                circle->AddAttribute("radius", cls_AttributeType_DOUBLE, 1, 0);
            },
            7);
        EXPECT_EQ(registrar().Length(), before + 2);
        EXPECT_EQ(registrar().Find("Circle")->Version(), version);
        EXPECT_EQ(AnyObject(cls_ReadVisitor(store)).Stored().Bytes(), store.Bytes());
    }
    cls_ReadVisitor reader(store);
    EXPECT_THROW(registrar().Find("Shape")->Ctor(reader), Failure);
    EXPECT_THROW(registrar().Find("Circle")->DeleteCow(nullptr), Failure);
}

TEST(Persistence, AMatrixMovesAPoint) {
    constexpr double rows[3][4] = {{0, -1, 0, 10}, {1, 0, 0, 20}, {0, 0, 2, 30}};
    gsl_Point point(1, 2, 3);
    point.Transform(gsl_Matrix());
    EXPECT_TRUE(point.GetX() == 1 && point.GetY() == 2 && point.GetZ() == 3);
    point.Transform(gsl_Matrix(rows));
    EXPECT_TRUE(point.GetX() == 8 && point.GetY() == 21 && point.GetZ() == 36);
}

} // namespace
