#include "platform/kfr/kfrsequence.h"

#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrany.h"
#include "tests/platform/testobjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace KFR {
namespace {

using test::AlarmClock;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An element that counts its instances and throws at the copy that it is told to.
class Brittle {
public:
    explicit Brittle(int value = 0) : m_value(value) { ++s_living; }
    Brittle(Brittle const& other) : m_value(other.m_value)
    {
        if (s_copiesLeft == 0) {
            throw std::runtime_error("no more copies");
        }
        --s_copiesLeft;
        ++s_living;
    }
    Brittle& operator=(Brittle const&) = default;
    ~Brittle() { --s_living; }

    friend bool operator==(Brittle const&, Brittle const&) = default;
    friend void PrintTo(Brittle const& element, std::ostream* out) { *out << element.m_value; }

    static inline int s_living = 0;
    static inline int s_copiesLeft = -1;  // below 0: any number

private:
    int m_value;
};

// --- sharing and detaching ---------------------------------------------------------------------

using Words = KFRSequence<std::string>;

// clang-format off
struct {
    char const* name;
    std::function<void(Words&)> change;
    std::vector<std::string> expected;
} const kChanges[] = {
    {"Append",        [](Words& w) { w.append("d"); },            {"a", "b", "c", "d"}},
    {"AppendOfItself", [](Words& w) { w.append(w); },             {"a", "b", "c", "a", "b", "c"}},
    {"Index",         [](Words& w) { w[1] = "x"; },               {"a", "x", "c"}},
    {"Data",          [](Words& w) { w.data()[2] = "x"; },        {"a", "b", "x"}},
    {"Begin",         [](Words& w) { *w.begin() = "x"; },         {"x", "b", "c"}},
    {"End",           [](Words& w) { *(w.end() - 1) = "x"; },     {"a", "b", "x"}},
    {"EraseFirst",    [](Words& w) { w.erase(0); },               {"b", "c"}},
    {"EraseMiddle",   [](Words& w) { w.erase(1); },               {"a", "c"}},
    {"ErasePastEnd",  [](Words& w) { w.erase(1, 99); },           {"a"}},
    {"EraseAll",      [](Words& w) { w.erase(0, 3); },            {}},
    {"InsertFront",   [](Words& w) { w.insert(0, "x"); },         {"x", "a", "b", "c"}},
    {"InsertMiddle",  [](Words& w) { w.insert(2, "x"); },         {"a", "b", "x", "c"}},
    {"InsertEnd",     [](Words& w) { w.insert(3, "x"); },         {"a", "b", "c", "x"}},
    {"InsertOwn",     [](Words& w) { w.insert(0, w.back()); },    {"c", "a", "b", "c"}},
    {"Shrink",        [](Words& w) { w.resize(1); },              {"a"}},
    {"Grow",          [](Words& w) { w.resize(5, "x"); },         {"a", "b", "c", "x", "x"}},
    {"Clear",         [](Words& w) { w.clear(); },                {}},
    {"Reserve",       [](Words& w) { w.reserve(2); },             {"a", "b", "c"}},
    {"Assign",        [](Words& w) { w = Words{"x"}; },           {"x"}},
};
// clang-format on

TEST(ChangeOfAShared, LeavesTheCopyAsItWas)
{
    for (auto const& row : kChanges) {
        SCOPED_TRACE(row.name);
        Words words{"a", "b", "c"};
        Words const copy(words);
        ASSERT_TRUE(copy.sharesWith(words));
        row.change(words);
        EXPECT_FALSE(copy.sharesWith(words));
        EXPECT_THAT(copy, ElementsAre("a", "b", "c"));
        EXPECT_THAT(words, ::testing::ElementsAreArray(row.expected));
        EXPECT_EQ(copy.holders(), 1);
        Words own{"a", "b", "c"};
        row.change(own);
        EXPECT_THAT(own, ::testing::ElementsAreArray(row.expected));
    }
}

TEST(KFRSequence, ReadingAndChangesOfNothingKeepTheBlockShared)
{
    Words words{"a", "b"};
    Words const copy(words);
    EXPECT_EQ(std::as_const(words)[1], "b");
    EXPECT_EQ(words.at(0), "a");
    words.erase(2);
    words.erase(0, 0);
    words.resize(2);
    words.append(Words());
    EXPECT_TRUE(words.sharesWith(copy));
    EXPECT_EQ(words.holders(), 2);
    EXPECT_THROW(static_cast<void>(words.at(2)), std::out_of_range);
}

TEST(KFRSequence, EmptyOnesShareOneBlockPerElementType)
{
    KFRSequence<int> const first;
    KFRSequence<int> second;
    EXPECT_TRUE(first.sharesWith(second));
    EXPECT_TRUE(KFRSequence<int>(std::size_t{0}).sharesWith(first));
    EXPECT_TRUE(KFRSequence<int>(first.begin(), first.end()).sharesWith(first));
    EXPECT_EQ(second.begin(), second.end());

    second.append(1);
    EXPECT_THAT(first, IsEmpty());
    EXPECT_THAT(KFRSequence<int>(), IsEmpty());
}

TEST(KFRSequence, ClearKeepsABlockOfItsOwnAndLeavesASharedOne)
{
    KFRSequence<int> own{1, 2, 3};
    std::size_t const room = own.capacity();
    own.clear();
    EXPECT_EQ(own.capacity(), room);
    EXPECT_FALSE(own.sharesWith(KFRSequence<int>()));

    KFRSequence<int> shared{1, 2, 3};
    KFRSequence<int> const copy(shared);
    shared.clear();
    EXPECT_TRUE(shared.sharesWith(KFRSequence<int>()));
    shared.clear();
    EXPECT_THAT(shared, IsEmpty());
    EXPECT_THAT(copy, ElementsAre(1, 2, 3));
}

TEST(KFRSequence, MovedFromIsEmptyAndUsable)
{
    Words from{"a"};
    Words to(std::move(from));
    EXPECT_THAT(from, IsEmpty());  // NOLINT: what it is now is the question
    EXPECT_EQ(to.holders(), 1);
    from.append("b");
    to = std::move(from);
    EXPECT_THAT(from, IsEmpty());  // NOLINT
    EXPECT_THAT(to, ElementsAre("b"));

    Words& same = to;
    to = std::move(same);
    EXPECT_THAT(to, ElementsAre("b"));
    to = same;
    EXPECT_THAT(to, ElementsAre("b"));
    EXPECT_EQ(to.holders(), 1);
}

TEST(KFRSequence, IsMadeFromASinglePassRange)
{
    std::istringstream text("3 1 2");
    KFRSequence<int> const numbers{std::istream_iterator<int>(text), std::istream_iterator<int>()};
    EXPECT_THAT(numbers, ElementsAre(3, 1, 2));
}

TEST(KFRSequence, EqualityGoesByElements)
{
    Words const words{"a", "b"};
    EXPECT_EQ(words, Words(words));
    EXPECT_EQ(words, (Words{"a", "b"}));
    EXPECT_NE(words, (Words{"a"}));
    EXPECT_NE(words, (Words{"a", "c"}));
}

// --- growing -----------------------------------------------------------------------------------

TEST(KFRSequence, TakesAnElementOfItselfWhileItGrows)
{
    Words words{std::string(40, 'x')};
    Words shorts{"s"};  // points into itself: not to be moved by its bytes
    KFRSequence<int> numbers{7};
    for (int i = 0; i < 100; ++i) {
        words.append(std::as_const(words).front());
        words.append(std::string(words[0]));
        shorts.append(std::as_const(shorts).front());
        numbers.append(std::as_const(numbers).back());
    }
    EXPECT_THAT(words, ::testing::Each(std::string(40, 'x')));
    EXPECT_THAT(shorts, ::testing::Each("s"));
    EXPECT_THAT(numbers, ::testing::Each(7));
    EXPECT_EQ(words.size(), 201U);

    words.resize(1);
    words.reserve(1);
    words.resize(500, words[0]);
    EXPECT_EQ(words.back(), std::string(40, 'x'));
}

TEST(KFRSequence, GrowsInStepsAlsoWhenWholeSequencesAreAppended)
{
    KFRSequence<int> const three{1, 2, 3};
    KFRSequence<int> all;
    int moves = 0;
    for (int i = 0; i < 10000; ++i) {
        std::size_t const room = all.capacity();
        all.append(three);
        moves += all.capacity() != room ? 1 : 0;
    }
    EXPECT_EQ(all.size(), 30000U);
    EXPECT_LT(moves, 50);
}

TEST(KFRSequence, RefusesMoreElementsThanItCanCount)
{
    KFRSequence<char> text{'a', 'b'};
    EXPECT_THROW(text.reserve(std::size_t{1} << 31), std::length_error);
    EXPECT_THROW(text.resize(~std::size_t{0}), std::length_error);
    EXPECT_THAT(text, ElementsAre('a', 'b'));
}

// --- what elements cost ------------------------------------------------------------------------

/// Elements 1, 2, 3 with the given room.
KFRSequence<Brittle> three(std::size_t room)
{
    KFRSequence<Brittle> made;
    made.reserve(room);
    for (int const value : {1, 2, 3}) {
        made.append(Brittle(value));
    }
    return made;
}

TEST(KFRSequenceOfBrittle, IsAsItWasWhenACopyThrows)
{
    using Sequence = KFRSequence<Brittle>;
    Sequence const others = three(3);
    struct {
        char const* name;
        std::function<void(Sequence&)> change;
        bool shared;
    } const rows[] = {
        {"append", [](Sequence& s) { s.append(Brittle(9)); }, false},
        {"append to a shared", [](Sequence& s) { s.append(Brittle(9)); }, true},
        {"append many", [&](Sequence& s) { s.append(others); }, false},
        {"resize", [](Sequence& s) { s.resize(9, Brittle(9)); }, false},
        {"reserve", [](Sequence& s) { s.reserve(50); }, false},
        {"index", [](Sequence& s) { s[1] = Brittle(9); }, true},
        {"erase", [](Sequence& s) { s.erase(0); }, true},
        {"insert", [](Sequence& s) { s.insert(0, Brittle(9)); }, true},
    };
    for (auto const& row : rows) {
        for (std::size_t const room : {3U, 20U}) {
            Sequence elements = three(room);
            Sequence const copy = row.shared ? elements : Sequence();
            int failures = 0;
            for (int copies = 0;; ++copies) {  // one copy more until it goes through
                Brittle::s_copiesLeft = copies;
                try {
                    row.change(elements);
                    break;
                } catch (std::runtime_error const&) {
                    Brittle::s_copiesLeft = -1;
                    ++failures;
                    EXPECT_THAT(elements, ElementsAre(Brittle(1), Brittle(2), Brittle(3)))
                        << row.name << " with room for " << room << ", copies " << copies;
                    // It may stand on a block of its own by now, but nothing is lost or left over.
                    bool const detached = row.shared && !copy.sharesWith(elements);
                    EXPECT_EQ(Brittle::s_living, detached ? 9 : 6) << row.name;
                }
            }
            Brittle::s_copiesLeft = -1;
            EXPECT_GT(failures, 0) << row.name;
        }
        EXPECT_EQ(Brittle::s_living, 3) << row.name;
    }
}

// --- threads -----------------------------------------------------------------------------------

TEST(KFRSequenceThreads, CopiesAreCopiedChangedAndDroppedWithoutTheOthersNoticing)
{
    auto const clock = make<AlarmClock>();
    {
        KFRSequence<CAE::EntityReference> shared;
        shared.resize(20, {KFRIService(clock), 1, 5, 0});
        Words words{"a", "b", "c"};
        std::vector<std::jthread> threads;
        for (unsigned t = 0; t < 4; ++t) {
            threads.emplace_back([t, shared, words]() mutable {
                for (unsigned i = 0; i < 500; ++i) {
                    auto copy = shared;
                    copy[i % 20].id = t;
                    EXPECT_EQ(std::as_const(copy)[(i + 1) % 20].id, 5U);
                    Words other(words);
                    if (i % 3 == 0) {
                        other.clear();
                    } else {
                        other.append(std::to_string(i));
                    }
                    EXPECT_THAT(Words(), IsEmpty());
                }
            });
        }
        threads.clear();  // joins
        EXPECT_EQ(clock->referenceCount(), 21);
        EXPECT_EQ(shared.holders(), 1);
        EXPECT_EQ(words.holders(), 1);
    }
    EXPECT_EQ(clock->referenceCount(), 1);
}

TEST(KFRSequenceThreads, TheLastTwoHoldersMayLetGoAtOnce)
{
    for (int round = 0; round < 300; ++round) {
        Words first{"a", "b"};
        std::thread other([copy = first]() mutable { copy.append("c"); });
        first[0] = "x";
        other.join();
        EXPECT_EQ(first.at(0), "x");
    }
}

}  // namespace
}  // namespace KFR
