#include "simulator/Records.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace sim {
namespace {

struct Inner {
    unsigned char bFlag;
    wchar_t *wszText;
};

struct Outer {
    unsigned long dwType;
    long nPercent;
    unsigned char bShared;
    long long llSize;
    unsigned long long ullBig;
    wchar_t *wszName;
    char *szSerial;
    FILETIME ftCreated;
    unsigned long dwAddress;
    wchar_t wszFixed[8];
    unsigned long dwMountPointCount;
    wchar_t **pwszMountPoints;
    unsigned long dwInnerCount;
    Inner *pInner;
    Inner *pOne;
};

void FillOuter(Reader &r, Outer &o) {
    r.Field("dwType", o.dwType);
    r.Field("nPercent", o.nPercent);
    r.Field("bShared", o.bShared);
    r.Field("llSize", o.llSize);
    r.Field("ullBig", o.ullBig);
    r.Field("wszName", o.wszName);
    r.Field("szSerial", o.szSerial);
    r.Field("ftCreated", o.ftCreated);
    r.Ipv4("dwAddress", o.dwAddress);
    r.Field("wszFixed", o.wszFixed);
    r.StringArray("mountPoints", o.dwMountPointCount, o.pwszMountPoints);
    auto inner = [](Reader &item, Inner &i) {
        item.Field("bFlag", i.bFlag);
        item.Field("wszText", i.wszText);
    };
    r.Array("inner", o.dwInnerCount, o.pInner, inner);
    r.Pointer("one", o.pOne, inner);
}

// Builds from JSON; the allocations are freed when `memory` goes.
Outer Build(const char *json, Allocator &memory) {
    Json data = Json::parse(json);
    Reader reader(data, "d", memory);
    Outer outer{};
    FillOuter(reader, outer);
    reader.Done();
    return outer;
}

TEST(Records, RefusesWrongValuesWithTheirPath) {
    struct Case {
        const char *json;
        const char *problemStart;
    } cases[] = {
        {R"({"dwType": -1})", "d.dwType: expected an integer"},
        {R"({"dwType": 4294967296})", "d.dwType: expected an integer"},
        {R"({"bShared": 256})", "d.bShared: expected an integer"},
        {R"({"nPercent": 2147483648})", "d.nPercent: expected an integer"},
        {R"({"dwType": "12abc"})", "d.dwType: expected an integer"},
        {R"({"dwType": 1.5})", "d.dwType: expected an integer"},
        {R"({"wszName": 5})", "d.wszName: expected a string"},
        {R"({"ftCreated": "2024-03-01 14:30"})", "d.ftCreated: expected a UTC time"},
        {R"({"dwAddress": "10.0.0.300"})", "d.dwAddress: expected an integer"},
        {R"({"wszFixed": "12345678"})", "d.wszFixed: longer than the record's 7 characters"},
        {R"({"mountPoints": "E"})", "d.mountPoints: expected an array"},
        {R"({"mountPoints": ["E", 3]})", "d.mountPoints[1]: expected a string"},
        {R"({"inner": [{"bFlagg": 1}]})", "d.inner[0].bFlagg: no such field"},
        {R"({"inner": [7]})", "d.inner[0]: expected an object"},
        {R"({"dwTyp": 1})", "d.dwTyp: no such field"},
    };
    for (const Case &c : cases) {
        Allocator memory;
        try {
            Build(c.json, memory);
            ADD_FAILURE() << c.json << " was accepted";
        } catch (const ScenarioError &error) {
            EXPECT_EQ(std::string(error.what()).rfind(c.problemStart, 0), 0u) << c.json << " gave " << error.what();
        }
    }
}

// The hostile shapes a response can ask for, by the key of the array.
TEST(Records, ShapesTheNamedArray) {
    struct Case {
        const char *shapes;
        unsigned long mountPoints;
        bool mountArray;
        const wchar_t *firstMountPoint;
        unsigned long inner;
        bool innerArray;
        const wchar_t *firstInnerText;
    } cases[] = {
        {R"({})", 2, true, L"E", 2, true, L"a"},
        {R"({"nullArray": "mountPoints"})", 2, false, nullptr, 2, true, L"a"},
        {R"({"nullElement": "mountPoints"})", 3, true, nullptr, 2, true, L"a"},
        {R"({"nullArray": "inner"})", 2, true, L"E", 2, false, nullptr},
        {R"({"nullElement": "inner", "nullArray": "mountPoints"})", 2, false, nullptr, 3, true, nullptr},
        {R"({"nullArray": "empty"})", 2, true, L"E", 2, true, L"a"},
    };
    for (const Case &c : cases) {
        Json data = Json::parse(R"({"mountPoints": ["E", "F"], "inner": [{"wszText": "a"}, {}], "empty": []})");
        data.update(Json::parse(c.shapes));
        Allocator memory;
        ArrayShapes shapes;
        Reader reader(data, "d", memory, &shapes);
        reader.TakeShapes();
        Outer o{};
        FillOuter(reader, o);
        unsigned long emptyCount = 0;
        wchar_t **empty = nullptr;
        reader.StringArray("empty", emptyCount, empty);
        reader.Done();
        reader.CheckShapes();
        EXPECT_EQ(o.dwMountPointCount, c.mountPoints) << c.shapes;
        ASSERT_EQ(o.pwszMountPoints != nullptr, c.mountArray) << c.shapes;
        if (c.mountArray) {
            EXPECT_EQ(std::wstring(o.pwszMountPoints[0] ? o.pwszMountPoints[0] : L"(none)"),
                      c.firstMountPoint ? c.firstMountPoint : L"(none)")
                << c.shapes;
        }
        EXPECT_EQ(o.dwInnerCount, c.inner) << c.shapes;
        ASSERT_EQ(o.pInner != nullptr, c.innerArray) << c.shapes;
        if (c.innerArray) {
            EXPECT_EQ(std::wstring(o.pInner[0].wszText ? o.pInner[0].wszText : L"(none)"),
                      c.firstInnerText ? c.firstInnerText : L"(none)")
                << c.shapes;
        }
        const bool emptyNamed = std::string(c.shapes).find("empty") != std::string::npos;
        EXPECT_EQ(emptyCount, emptyNamed ? 1u : 0u) << c.shapes; // a count even where the list is empty
        EXPECT_EQ(empty == nullptr, emptyNamed) << c.shapes;
    }
}

TEST(Records, RefusesAShapeOfNoArray) {
    for (const char *shapes : {R"({"nullArray": "mountPoint"})", R"({"nullElement": "wszName"})", R"({"nullArray": 3})"}) {
        Json data = Json::parse(R"({"mountPoints": ["E"], "wszName": "x"})");
        data.update(Json::parse(shapes));
        Allocator memory;
        ArrayShapes arrays;
        Reader reader(data, "d", memory, &arrays);
        EXPECT_THROW(
            {
                reader.TakeShapes();
                Outer o{};
                FillOuter(reader, o);
                reader.Done();
                reader.CheckShapes();
            },
            ScenarioError)
            << shapes;
    }
}

TEST(Records, LogsWhatClientsSend) {
    EXPECT_EQ(LogText(nullptr), Json(nullptr));
    EXPECT_EQ(LogText(L"E:\\mnt"), Json("E:\\mnt"));
    EXPECT_EQ(LogAnsi("abc"), Json("abc"));
    EXPECT_EQ(Ipv4Text(0x0500000AUL), "10.0.0.5");
    FILETIME time{};
    SYSTEMTIME utc{2024, 3, 5, 1, 14, 30, 0, 0};
    SystemTimeToFileTime(&utc, &time);
    EXPECT_EQ(LogTime(time), Json("2024-03-01T14:30:00Z"));
}

} // namespace
} // namespace sim
