// Building the records that the service hands back from scenario JSON whose
// keys are the record field names, and turning the records a client sends
// into JSON for the call log.
#pragma once

#include "simulator/Scenario.h"

#include <windows.h>

#include <limits>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace sim {

// COM task memory for returned records. Every block is remembered until
// Commit(): a record that cannot be built completely is freed again as a
// whole, and a check of a scenario frees everything it built.
class Allocator {
public:
    Allocator() = default;
    Allocator(const Allocator &) = delete;
    Allocator &operator=(const Allocator &) = delete;
    ~Allocator();

    void *Alloc(size_t bytes); // zero-filled; throws std::bad_alloc
    template <typename T> T *AllocArray(size_t count) { return static_cast<T *>(Alloc(sizeof(T) * (count == 0 ? 1 : count))); }
    wchar_t *String(const std::string &utf8);
    char *AnsiString(const std::string &utf8);
    void Commit() { blocks_.clear(); } // the client owns everything from now on

private:
    std::vector<void *> blocks_;
};

// Hostile but legal shapes of the arrays a method returns, asked for by two
// keys of a response, each naming an array by its key wherever it appears:
// "nullArray" keeps the array's count (at least 1) and sends no array at all;
// "nullElement" puts an element of zeros first (a null string in an array of
// strings, a record of zeros and null pointers in an array of records).
struct ArrayShapes {
    std::string nullArray;
    std::string nullElement;
    std::set<std::string> met; // the array keys the data holds, to refuse a name that is none of them
};

// A JSON object read as one record. Every field is optional (absent leaves the
// zero of the freshly allocated record); a field that is present must have
// the right type, and Done() refuses keys that are no field of the record.
class Reader {
public:
    Reader(const Json &object, std::string path, Allocator &allocator, ArrayShapes *shapes = nullptr);

    // The top level of a method's data: takes the "nullArray" and
    // "nullElement" keys into the shapes given to the constructor, and after
    // the fill refuses a name that is no array of the data.
    void TakeShapes();
    void CheckShapes() const;

    template <typename T, std::enable_if_t<std::is_integral<T>::value, int> = 0> void Field(const char *name, T &out) {
        if (const Json *value = Find(name))
            out = static_cast<T>(Integer(*value, Path(name), static_cast<long long>(std::numeric_limits<T>::min()),
                                         static_cast<unsigned long long>(std::numeric_limits<T>::max())));
    }
    // A small fixed array of integers (such as a 2-byte id), written as a JSON
    // array of at most N numbers; the rest stays zero.
    template <typename T, size_t N, std::enable_if_t<std::is_integral<T>::value, int> = 0>
    void Integers(const char *name, T (&out)[N]) {
        const Json *value = Find(name);
        if (value == nullptr)
            return;
        ExpectArray(*value, name);
        if (value->size() > N)
            throw ScenarioError(Path(name) + ": at most " + std::to_string(N) + " numbers");
        for (size_t i = 0; i < value->size(); ++i)
            out[i] = static_cast<T>(Integer((*value)[i], Path(name) + "[" + std::to_string(i) + "]",
                                            static_cast<long long>(std::numeric_limits<T>::min()),
                                            static_cast<unsigned long long>(std::numeric_limits<T>::max())));
    }
    void Field(const char *name, wchar_t *&out);
    void Field(const char *name, char *&out); // ANSI text, as serial numbers travel
    void Field(const char *name, FILETIME &out);
    template <size_t N> void Field(const char *name, wchar_t (&out)[N]) { FixedString(name, out, N); }
    // An IPv4 address held in network byte order: "10.1.2.3" or a number.
    void Ipv4(const char *name, unsigned long &out);

    template <typename Count> void StringArray(const char *name, Count &count, wchar_t **&out) {
        const Json *value = Find(name);
        if (value == nullptr)
            return;
        ExpectArray(*value, name);
        for (size_t i = 0; i < value->size(); ++i)
            if (!(*value)[i].is_string())
                throw ScenarioError(Path(name) + "[" + std::to_string(i) + "]: expected a string");
        const size_t first = Shape(name, value->size(), count);
        if (first == kNoArray)
            return;
        out = allocator_.AllocArray<wchar_t *>(value->size() + first);
        for (size_t i = 0; i < value->size(); ++i)
            out[first + i] = allocator_.String((*value)[i].get<std::string>());
    }

    // An array of records: `fill(Reader &, T &)` reads each.
    template <typename T, typename Count, typename Fill> void Array(const char *name, Count &count, T *&out, Fill fill) {
        const Json *value = Find(name);
        if (value == nullptr)
            return;
        ExpectArray(*value, name);
        const size_t first = Shape(name, value->size(), count);
        // Without an array the records are still read, into scratch memory
        // that goes with this call, so that a faulty one is reported whatever the shape.
        Allocator scratch;
        Allocator &memory = first == kNoArray ? scratch : allocator_;
        const size_t at = first == kNoArray ? 0 : first;
        T *records = memory.AllocArray<T>(value->size() + at);
        if (first != kNoArray)
            out = records;
        for (size_t i = 0; i < value->size(); ++i) {
            Reader item((*value)[i], Path(name) + "[" + std::to_string(i) + "]", memory, shapes_);
            fill(item, records[at + i]);
            item.Done();
        }
    }

    // A pointer to one record; absent or null leaves the pointer null.
    template <typename T, typename Fill> void Pointer(const char *name, T *&out, Fill fill) {
        const Json *value = Find(name);
        if (value == nullptr || value->is_null())
            return;
        out = allocator_.AllocArray<T>(1);
        Reader item(*value, Path(name), allocator_, shapes_);
        fill(item, *out);
        item.Done();
    }

    // A record held inside this one, written as a nested object.
    template <typename Fill> void Nested(const char *name, Fill fill) {
        const Json *value = Find(name);
        if (value == nullptr)
            return;
        Reader item(*value, Path(name), allocator_, shapes_);
        fill(item);
        item.Done();
    }

    void Done() const;
    Allocator &Memory() { return allocator_; }
    const std::string &Where() const { return path_; }

private:
    static constexpr size_t kNoArray = static_cast<size_t>(-1);
    // Sets the count of the array `name` of `size` elements and says where
    // its elements start (1 after a null element), or kNoArray for none.
    template <typename Count> size_t Shape(const char *name, size_t size, Count &count) {
        if (shapes_ != nullptr)
            shapes_->met.insert(name);
        if (shapes_ != nullptr && shapes_->nullArray == name) {
            count = static_cast<Count>(size == 0 ? 1 : size);
            return kNoArray;
        }
        const size_t first = shapes_ != nullptr && shapes_->nullElement == name ? 1 : 0;
        count = static_cast<Count>(size + first);
        return first;
    }
    const Json *Find(const char *name);
    std::string Path(const char *name) const { return path_ + "." + name; }
    void ExpectArray(const Json &value, const char *name) const;
    void FixedString(const char *name, wchar_t *out, size_t capacity);
    static unsigned long long Integer(const Json &value, const std::string &path, long long min, unsigned long long max);

    const Json &object_;
    std::string path_;
    Allocator &allocator_;
    ArrayShapes *shapes_;
    std::vector<std::string> used_;
};

// Call-log forms of what a client sent.
Json LogText(const wchar_t *text);  // null stays null
Json LogAnsi(const char *text);     // null stays null
Json LogTime(const FILETIME &time); // ISO 8601, UTC
std::string Ipv4Text(unsigned long networkOrder);

} // namespace sim
