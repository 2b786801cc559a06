#include "system/FileWatch.h"

#include <utility>

namespace tovarek {
namespace {

thread_local FileWatch* currentWatch = nullptr;

}  // namespace

FileWatch::FileWatch() : outer_(std::exchange(currentWatch, this)) {}

FileWatch::~FileWatch() {
    currentWatch = outer_;
}

FileWatch* FileWatch::Current() {
    return currentWatch;
}

}  // namespace tovarek
