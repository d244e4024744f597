// What an object owns through a pointer and is never without: constant while its owner is.
#pragma once

#include <memory>
#include <utility>

template <class T>
class TOwned {
public:
    /// `object` is not empty.
    explicit TOwned(std::unique_ptr<T> object) : object_(std::move(object)) {}

    T &operator*() { return *object_; }
    const T &operator*() const { return *object_; }
    T *operator->() { return object_.get(); }
    const T *operator->() const { return object_.get(); }

private:
    std::unique_ptr<T> object_;
};
