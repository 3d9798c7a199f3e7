#include "database/tvlist.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Node {
    Node() = default;
    explicit Node(char newName, int* newDestroyed = nullptr) : name(newName), destroyed(newDestroyed) {}
    ~Node() {
        if (destroyed != nullptr) ++*destroyed;
    }
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    char name = '?';
    int* destroyed = nullptr;
};

using Element = tvlist_ele<Node>;
using List = tvlist<Element>;

// The names forward, a bar, the names backward.
std::string Walk(const List& list) {
    std::string walk;
    for (const Element* element = list.m_Head; element != nullptr; element = element->m_Next) {
        walk += element->name;
    }
    walk += '|';
    for (const Element* element = list.m_Tail; element != nullptr; element = element->m_Prev) {
        walk += element->name;
    }
    return walk;
}

class TvList : public ::testing::Test {
protected:
    Element* Put(char name) {
        auto* element = new Element(name, &destroyed);
        EXPECT_TRUE(list.Insert(element, nullptr));
        return element;
    }
    int destroyed = 0;
    List list;
};

TEST_F(TvList, IsEmptyAtFirst) {
    EXPECT_EQ(list.m_Count, 0);
    EXPECT_EQ(list.m_Head, nullptr);
    EXPECT_EQ(list.m_Tail, nullptr);
    EXPECT_EQ(list.Tail(), nullptr);
}

TEST_F(TvList, InsertBeforeNullAppends) {
    Put('a');
    Put('b');
    Put('c');
    EXPECT_EQ(Walk(list), "abc|cba");
    EXPECT_EQ(list.m_Count, 3);
}

TEST_F(TvList, InsertBeforeTheHeadMakesANewHead) {
    Element* a = Put('a');
    EXPECT_TRUE(list.Insert(new Element('b', &destroyed), a));
    EXPECT_EQ(Walk(list), "ba|ab");
    EXPECT_EQ(list.m_Count, 2);
}

TEST_F(TvList, InsertBeforeAnElementPutsItBetween) {
    Put('a');
    Element* c = Put('c');
    EXPECT_TRUE(list.Insert(new Element('b', &destroyed), c));
    EXPECT_EQ(Walk(list), "abc|cba");
    EXPECT_EQ(list.m_Count, 3);
}

TEST_F(TvList, InsertRefusesNull) {
    Element* a = Put('a');
    EXPECT_FALSE(list.Insert(nullptr, nullptr));
    EXPECT_FALSE(list.Insert(nullptr, a));
    EXPECT_EQ(Walk(list), "a|a");
    EXPECT_EQ(list.m_Count, 1);
}

TEST_F(TvList, InsertRefusesAPlaceWithoutPredecessorThatIsNotTheHead) {
    Put('a');
    Element stranger('s');
    Element element('e');
    EXPECT_FALSE(list.Insert(&element, &stranger));
    EXPECT_EQ(Walk(list), "a|a");
    EXPECT_EQ(list.m_Count, 1);
    EXPECT_EQ(stranger.m_Prev, nullptr);
}

TEST_F(TvList, InsertIntoAnEmptyListRefusesAnyPlace) {
    Element stranger('s');
    Element element('e');
    EXPECT_FALSE(list.Insert(&element, &stranger));
    EXPECT_EQ(list.m_Count, 0);
}

TEST_F(TvList, AppendFindsATailThatIsNotKnownAndStoresTheNewOne) {
    Put('a');
    Put('b');
    list.m_Tail = nullptr;
    Element* c = Put('c');
    EXPECT_EQ(list.m_Tail, c);
    EXPECT_EQ(Walk(list), "abc|cba");
}

TEST_F(TvList, UnlinkWorksWhileTheTailIsNotKnown) {
    Element* a = Put('a');
    Element* b = Put('b');
    list.m_Tail = nullptr;
    EXPECT_TRUE(list.Unlink(b, Unlinked::Destroy));
    EXPECT_EQ(list.m_Head, a);
    EXPECT_EQ(list.Tail(), a);
    EXPECT_EQ(list.m_Count, 1);
}

TEST_F(TvList, UnlinkTakesTheHeadOut) {
    Element* a = Put('a');
    Put('b');
    EXPECT_TRUE(list.Unlink(a, Unlinked::Destroy));
    EXPECT_EQ(Walk(list), "b|b");
    EXPECT_EQ(list.m_Count, 1);
}

TEST_F(TvList, UnlinkTakesTheMiddleOut) {
    Put('a');
    Element* b = Put('b');
    Put('c');
    EXPECT_TRUE(list.Unlink(b, Unlinked::Destroy));
    EXPECT_EQ(Walk(list), "ac|ca");
    EXPECT_EQ(list.m_Count, 2);
}

TEST_F(TvList, UnlinkTakesTheTailOut) {
    Put('a');
    Element* b = Put('b');
    EXPECT_TRUE(list.Unlink(b, Unlinked::Destroy));
    EXPECT_EQ(Walk(list), "a|a");
    EXPECT_EQ(list.m_Count, 1);
}

TEST_F(TvList, UnlinkOfTheOnlyElementLeavesAnEmptyList) {
    EXPECT_TRUE(list.Unlink(Put('a'), Unlinked::Destroy));
    EXPECT_EQ(Walk(list), "|");
    EXPECT_EQ(list.m_Count, 0);
}

TEST_F(TvList, UnlinkDestroysUnlessTheElementIsToBeKept) {
    Element* kept = Put('a');
    Element* gone = Put('b');
    EXPECT_TRUE(list.Unlink(kept, Unlinked::Keep));
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(kept->m_Next, nullptr);
    EXPECT_EQ(kept->m_Prev, nullptr);
    EXPECT_TRUE(list.Unlink(gone, Unlinked::Destroy));
    EXPECT_EQ(destroyed, 1);
    delete kept;
}

TEST_F(TvList, UnlinkRefusesNull) {
    EXPECT_FALSE(list.Unlink(nullptr, Unlinked::Keep));
    Put('a');
    EXPECT_FALSE(list.Unlink(nullptr, Unlinked::Destroy));
    EXPECT_EQ(list.m_Count, 1);
}

TEST_F(TvList, UnlinkRefusesAnElementWithoutPredecessorThatIsNotTheHead) {
    List other;
    Put('a');
    auto* head = new Element('x');
    other.Insert(head, nullptr);
    other.Insert(new Element('y'), nullptr);
    EXPECT_FALSE(list.Unlink(head, Unlinked::Destroy));
    EXPECT_EQ(Walk(list), "a|a");
    EXPECT_EQ(Walk(other), "xy|yx");
}

TEST_F(TvList, UnlinkRefusesAnElementWithoutSuccessorThatIsNotTheTail) {
    List other;
    Put('a');
    other.Insert(new Element('x'), nullptr);
    auto* tail = new Element('y');
    other.Insert(tail, nullptr);
    EXPECT_FALSE(list.Unlink(tail, Unlinked::Destroy));
    EXPECT_EQ(Walk(list), "a|a");
    EXPECT_EQ(Walk(other), "xy|yx");
}

TEST_F(TvList, UnlinkRefusesAnElementThatWasTakenOut) {
    Element* a = Put('a');
    Put('b');
    EXPECT_TRUE(list.Unlink(a, Unlinked::Keep));
    EXPECT_FALSE(list.Unlink(a, Unlinked::Keep));
    EXPECT_EQ(list.m_Count, 1);
    delete a;
}

TEST_F(TvList, UnlinkDoesNotSeeThatAnElementBetweenTwoOthersIsAnotherLists) {
    List other;
    Put('a');
    Put('b');
    other.Insert(new Element('x'), nullptr);
    auto* middle = new Element('y');
    other.Insert(middle, nullptr);
    other.Insert(new Element('z'), nullptr);
    EXPECT_TRUE(list.Unlink(middle, Unlinked::Destroy));
    EXPECT_EQ(Walk(other), "xz|zx");
    EXPECT_EQ(other.m_Count, 3);
    EXPECT_EQ(Walk(list), "ab|ba");
    EXPECT_EQ(list.m_Count, 1);
}

TEST_F(TvList, ClearDestroysAllElements) {
    Put('a');
    Put('b');
    list.Clear();
    EXPECT_EQ(destroyed, 2);
    EXPECT_EQ(list.m_Count, 0);
    EXPECT_EQ(list.m_Head, nullptr);
    EXPECT_EQ(list.m_Tail, nullptr);
    list.Clear();
    EXPECT_EQ(destroyed, 2);
}

TEST_F(TvList, DestructionDestroysAllElements) {
    {
        List brief;
        brief.Insert(new Element('a', &destroyed), nullptr);
        brief.Insert(new Element('b', &destroyed), nullptr);
    }
    EXPECT_EQ(destroyed, 2);
}

TEST_F(TvList, RelinkGivesExactlyThatOrder) {
    Element* a = Put('a');
    Element* b = Put('b');
    Element* c = Put('c');
    list.Relink(std::vector<Element*>{c, a, b});
    EXPECT_EQ(Walk(list), "cab|bac");
    EXPECT_EQ(list.m_Count, 3);
    EXPECT_EQ(destroyed, 0);
}

TEST_F(TvList, RelinkTakesInWhatWasOutAndLeavesOutWhatWasInWithoutDestroying) {
    Element* a = Put('a');
    Element* b = Put('b');
    EXPECT_TRUE(list.Unlink(a, Unlinked::Keep));
    list.Relink(std::vector<Element*>{a});
    EXPECT_EQ(Walk(list), "a|a");
    EXPECT_EQ(list.m_Count, 1);
    EXPECT_EQ(destroyed, 0);
    delete b;
}

TEST_F(TvList, RelinkWithAnEmptyOrderGivesAnEmptyList) {
    Element* a = Put('a');
    list.Relink({});
    EXPECT_EQ(Walk(list), "|");
    EXPECT_EQ(list.m_Count, 0);
    EXPECT_EQ(destroyed, 0);
    delete a;
}

}  // namespace
