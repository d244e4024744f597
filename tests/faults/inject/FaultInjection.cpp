#include "inject/Judge.h"

#include <array>
#include <atomic>
#include <mutex>
#include <string_view>
#include <sys/types.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::size_t mostDescriptors = 4096;

struct TRecord {
    TFault fault;
    int seen = 0;
    int hits = 0;
    TCalls hitCalls;
};

struct TState {
    std::mutex mutex; ///< for all but the thread
    std::string where;
    std::thread::id thread; ///< none: all
    std::vector<TRecord> records;
    TCalls made;
    std::array<bool, mostDescriptors> watched{};
};

/// Whether anything is in force; calls before and after main find it unset.
std::atomic<bool> inForce = false;

TState &State() {
    static TState state;
    return state;
}

bool IsOurs() {
    const std::thread::id whose = State().thread;
    return inForce && (whose == std::thread::id() || whose == std::this_thread::get_id());
}

bool IsBelow(std::string_view path, std::string_view where) {
    return path.starts_with(where) && (path.size() == where.size() || path[where.size()] == '/');
}

std::string Absolute(const char *path) {
    if (path[0] == '/')
        return path;
    std::array<char, 4096> current{};
    if (!getcwd(current.data(), current.size()))
        return path;
    const std::string folder = current.data();
    return path == std::string_view(".") ? folder : folder + "/" + path;
}

bool Hits(TRecord &record, TCall call) {
    if (!record.fault.calls.Has(call))
        return false;
    ++record.seen;
    return record.fault.lasting ? record.seen >= record.fault.first
                                : record.seen == record.fault.first;
}

} // namespace

std::string TCalls::Text() const {
    constexpr std::array<const char *, callCount> names{
        "Open",   "OpenToWrite", "Create",   "Status", "ReadLink",    "Access", "Read",
        "Write",  "Seek",        "Truncate", "Flush",  "Permissions", "Owner",  "Close",
        "Rename", "Link",        "Unlink",   "List",   "Lock",        "Copy",   "MakeFolder"};
    std::string text;
    for (std::size_t i = 0; i < callCount; ++i)
        if (Has(static_cast<TCall>(i)))
            text += (text.empty() ? "" : " ") + std::string(names[i]);
    return text;
}

TFaultInjection::TFaultInjection(const std::filesystem::path &where, std::vector<TFault> faults,
                                 TThreads threads) {
    TState &state = State();
    const std::lock_guard lock(state.mutex);
    state.where = where.string();
    state.thread = threads == TThreads::Own ? std::this_thread::get_id() : std::thread::id();
    state.records.clear();
    for (const TFault &fault : faults)
        state.records.push_back({fault, 0, 0, {}});
    state.made = {};
    state.watched.fill(false);
    inForce = true;
}

TFaultInjection::~TFaultInjection() {
    inForce = false;
}

TCalls TFaultInjection::Made() const {
    const std::lock_guard lock(State().mutex);
    return State().made;
}

int TFaultInjection::Hits(std::size_t fault) const {
    const std::lock_guard lock(State().mutex);
    return State().records.at(fault).hits;
}

TCalls TFaultInjection::HitCalls(std::size_t fault) const {
    const std::lock_guard lock(State().mutex);
    return State().records.at(fault).hitCalls;
}

bool ConcernsPath(const char *path) {
    if (!IsOurs() || path[0] == '\0')
        return false;
    const std::string absolute = Absolute(path);
    const std::lock_guard lock(State().mutex);
    return IsBelow(absolute, State().where);
}

bool ConcernsDescriptor(int descriptor) {
    const auto index = static_cast<std::size_t>(descriptor);
    if (!IsOurs() || descriptor < 0 || index >= mostDescriptors)
        return false;
    const std::lock_guard lock(State().mutex);
    return State().watched[index];
}

void Watch(int descriptor, bool on) {
    const auto index = static_cast<std::size_t>(descriptor);
    if (!IsOurs() || descriptor < 0 || index >= mostDescriptors)
        return;
    const std::lock_guard lock(State().mutex);
    State().watched[index] = on;
}

void RunMeanwhile(const TFault &fault) {
    inForce = false;
    fault.meanwhile();
    inForce = true;
}

const TFault *Judge(TCall call) {
    const std::lock_guard lock(State().mutex);
    State().made.Add(call);
    for (TRecord &record : State().records)
        if (Hits(record, call)) {
            ++record.hits;
            record.hitCalls.Add(call);
            return &record.fault;
        }
    return nullptr;
}
