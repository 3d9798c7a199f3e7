// tvlist, an intrusive doubly linked list that owns its elements, and tvlist_ele, an element with its links.
//
// m_Count is the number of elements reachable from m_Head. The head has no predecessor and the tail no
// successor. m_Tail may be null while m_Head is not: the tail is then found by walking when it is needed.
#pragma once

#include <span>

#include "platform/types.h"

template <typename T>
class tvlist_ele final : public T {
public:
    using T::T;

    tvlist_ele* m_Next = nullptr;
    tvlist_ele* m_Prev = nullptr;
};

// What Unlink does with the element that it took out.
enum class Unlinked { Destroy, Keep };

template <typename Element>
class tvlist {
public:
    tvlist() noexcept = default;
    ~tvlist() { Clear(); }
    tvlist(const tvlist&) = delete;
    tvlist& operator=(const tvlist&) = delete;

    // Links an element, which the list owns from now on, before the element `before`, or at the tail when
    // `before` is null. False for a null element, or when `before` has no predecessor and is not the head.
    bool Insert(Element* element, Element* before);

    // Takes the element out; destroys it unless it is to be kept, when the caller owns it. False for null or
    // an element that is seen not to be in this list: no predecessor though not the head, or no successor
    // though not the tail. An element of another list with both links set is not seen.
    bool Unlink(Element* element, Unlinked then);

    // Destroys all elements.
    void Clear() noexcept;

    // The list holds exactly these elements in this order afterwards. None is destroyed: one that is left out
    // belongs to the caller.
    void Relink(std::span<Element* const> order) noexcept;

    // The last element, found by walking where m_Tail is not known; null for an empty list.
    [[nodiscard]] Element* Tail() const noexcept;

    i32 m_Count = 0;
    Element* m_Head = nullptr;
    Element* m_Tail = nullptr;

private:
    bool Append(Element* element) noexcept;
};

template <typename Element>
bool tvlist<Element>::Insert(Element* element, Element* before) {
    if (element == nullptr) return false;
    if (before == nullptr) return Append(element);
    if (before->m_Prev == nullptr && before != m_Head) return false;
    element->m_Prev = before->m_Prev;
    element->m_Next = before;
    (element->m_Prev == nullptr ? m_Head : element->m_Prev->m_Next) = element;
    before->m_Prev = element;
    ++m_Count;
    return true;
}

template <typename Element>
bool tvlist<Element>::Append(Element* element) noexcept {
    Element* tail = Tail();
    element->m_Prev = tail;
    element->m_Next = nullptr;
    (tail == nullptr ? m_Head : tail->m_Next) = element;
    m_Tail = element;
    ++m_Count;
    return true;
}

template <typename Element>
Element* tvlist<Element>::Tail() const noexcept {
    if (m_Tail != nullptr) return m_Tail;
    Element* tail = m_Head;
    while (tail != nullptr && tail->m_Next != nullptr)
        tail = tail->m_Next;
    return tail;
}

template <typename Element>
bool tvlist<Element>::Unlink(Element* element, Unlinked then) {
    if (element == nullptr) return false;
    if (element->m_Prev == nullptr && element != m_Head) return false;
    if (element->m_Next == nullptr && element != Tail()) return false;
    if (element == m_Tail) m_Tail = element->m_Prev;
    (element->m_Prev == nullptr ? m_Head : element->m_Prev->m_Next) = element->m_Next;
    if (element->m_Next != nullptr) element->m_Next->m_Prev = element->m_Prev;
    element->m_Prev = element->m_Next = nullptr;
    --m_Count;
    if (then == Unlinked::Destroy) delete element;
    return true;
}

template <typename Element>
void tvlist<Element>::Clear() noexcept {
    for (Element* element = m_Head; element != nullptr;) {
        Element* next = element->m_Next;
        delete element;
        element = next;
    }
    m_Count = 0;
    m_Head = m_Tail = nullptr;
}

template <typename Element>
void tvlist<Element>::Relink(std::span<Element* const> order) noexcept {
    m_Count = 0;
    m_Head = m_Tail = nullptr;
    for (Element* element : order)
        Append(element);
}
