// Remembers the order of texts from A to Z, so that a long list need not be put in order anew on each
// keystroke. What is remembered is tied to the texts as they were: where one has changed, or is new, it does
// not serve.
#pragma once

#include "windows/sort.h"

class KnownOrder {
public:
    KnownOrder() = default;
    ~KnownOrder() { Forget(); }
    KnownOrder(const KnownOrder&) = delete;
    KnownOrder& operator=(const KnownOrder&) = delete;

    // Takes the order of rows, which stand as in the source, from OrderByText.
    void Learn(const std::vector<ViewRow>& rows, const std::vector<u32>& order);

    // Puts rows that stand as in the source in order, from A to Z. False, with nothing done, unless all of
    // them are known with the texts that they have now.
    bool Sort(std::vector<ViewRow>& rows) const;

    // What is known of the texts is wiped.
    void Forget();

private:
    struct Known {
        const VMRD_Element* element;  // compared, never followed
        u64 textHash;
        u32 rank;
    };

    std::vector<Known> m_Known;  // as in the source
};
