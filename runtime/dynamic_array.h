#pragma once

#include "runtime/integers.h"

#include <cstddef>
#include <vector>

namespace runtime {

/// An array with lower bound 0 that starts without any element and is resized by its upper bound.
template <class Element>
class DynamicArray {
  public:
    /// The element at `index`; error 9 where there is none.
    Element& operator[](Int32 index) { return elements_[checked(index)]; }
    const Element& operator[](Int32 index) const { return elements_[checked(index)]; }

    /// Resizes to an upper bound of 0 or more, keeping the contents; error 9 for a negative one.
    void resizeKeeping(Int32 upperBound) {
        if (upperBound < 0) raise(SubscriptOutOfRange);
        elements_.resize(static_cast<std::size_t>(upperBound.value()) + 1);
    }

    /// Resizes with the contents gone.
    void reallocate(Int32 upperBound) {
        elements_.clear();
        resizeKeeping(upperBound);
    }

    /// Number of elements; 0 while the array has never been allocated.
    [[nodiscard]] std::size_t size() const { return elements_.size(); }

  private:
    [[nodiscard]] std::size_t checked(Int32 index) const {
        if (index < 0 || static_cast<std::size_t>(index.value()) >= elements_.size())
            raise(SubscriptOutOfRange);
        return static_cast<std::size_t>(index.value());
    }

    std::vector<Element> elements_;
};

} // namespace runtime
