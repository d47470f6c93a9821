#include "state/PoolFileImages.h"

#include <algorithm>

#include "format/PoolFile.h"

namespace aq {

namespace {

template <class Images>
auto findPath(Images& images, const std::string& path) {
    return std::find_if(images.begin(), images.end(), [&](const auto& i) { return i.path == path; });
}

}  // namespace

void PoolFileImages::note(const std::string& path, const Pool& pool) {
    if (path.empty()) return;
    auto it = findPath(images_, path);
    if (it != images_.end()) images_.erase(it);
    images_.push_front({path, pool});
    if (images_.size() > kMaxImages) images_.pop_back();
}

void PoolFileImages::update(const std::string& path, const Pool& pool) {
    auto it = findPath(images_, path);
    if (it != images_.end()) it->pool = pool;
}

bool PoolFileImages::holds(const std::string& path, const Pool& pool) {
    auto it = findPath(images_, path);
    if (it == images_.end()) return false;
    // The file asked about stays among the kept ones however many others are written.
    if (it != images_.begin()) {
        Image image = std::move(*it);
        images_.erase(it);
        images_.push_front(std::move(image));
    }
    return samePool(images_.front().pool, pool);
}

}  // namespace aq
