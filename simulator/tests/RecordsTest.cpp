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

// The shapes of full arrays cross the proxy in the contract tests; an empty
// list asked to come without its array still has a count.
TEST(Records, ACountWithoutAnArrayEvenWhereTheListIsEmpty) {
    for (const char *shapes : {R"({})", R"({"nullArray": "empty"})"}) {
        Json data = Json::parse(R"({"empty": []})");
        data.update(Json::parse(shapes));
        Allocator memory;
        ArrayShapes arrays;
        Reader reader(data, "d", memory, &arrays);
        reader.TakeShapes();
        unsigned long count = 0;
        wchar_t **empty = nullptr;
        reader.StringArray("empty", count, empty);
        reader.Done();
        reader.CheckShapes();
        const bool named = std::string(shapes).find("empty") != std::string::npos;
        EXPECT_EQ(count, named ? 1u : 0u) << shapes;
        EXPECT_EQ(empty == nullptr, named) << shapes;
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
