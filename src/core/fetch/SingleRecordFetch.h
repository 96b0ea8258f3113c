#pragma once

#include <cstdint>
#include <future>
#include <string>
#include <utility>

#include "base/AsyncTask.h"
#include "core/fetch/SingleRecordCache.h"
#include "core/renewal/Renewal.h"
#include "log/Logger.h"

namespace vantix {

/// What differs between the kinds of single records.
template <class Record>
struct SingleRecordKind {
    CallSite call;                   ///< Log tag of a direct call.
    CallSite task;                   ///< Log tag of the background task.
    const char* taskText = nullptr;  ///< What the task logs first. No error, but at that level on purpose.
    int (*fromPlatform)(const PlatformRoute& route, Record& record) = nullptr;
    int (*fromConsumer)(const ConsumerRoute& route, Record& record) = nullptr;
    /// Whether a success of the consumer servers filled the record; one that did not is passed on and not cached.
    bool (*isFilled)(const Record& record) = nullptr;
};

/// One cached record that either server family can provide.
template <class Record>
class SingleRecordFetch {
public:
    /// `kind` is static; the parts outlive this one, and this one outlives its tasks.
    SingleRecordFetch(const SingleRecordKind<Record>& kind, const Routes& routes, Renewal& renewal)
        : m_kind(kind), m_routes(routes), m_renewal(renewal) {}

    /// Serves the record, or fetches it now.
    int Get(const RouteRow& row, const Subject& subject, Record& record, bool retried) {
        return m_cache.Serve(record) ? static_cast<int>(VANTIX_NOERROR)
                                     : Refill(m_kind.call, row, subject, record, retried);
    }

    /// Serves the record, or starts a task that fetches it. Returns 0 in either case.
    int GetAsync(const RouteRow& row, const Subject& subject, Record& record, std::future<int32_t>& future,
                 bool retried) {
        if (!m_cache.Serve(record)) {
            future = StartTask([this, &row, subject, &record, retried]() -> int32_t {
                VANTIX_LOG_ERROR(m_kind.task, level::kError, "%s", m_kind.taskText);
                return Refill(m_kind.task, row, subject, record, retried);
            });
        }
        return VANTIX_NOERROR;
    }

    void Invalidate() { m_cache.Invalidate(); }
    void InvalidateOlderThan(int32_t seconds) { m_cache.InvalidateOlderThan(seconds); }

private:
    int Refill(const CallSite& site, const RouteRow& row, const Subject& subject, Record& record, bool retried) {
        Record fresh;
        fresh.iRequestCost = record.iRequestCost;
        bool isServed = false;
        bool isFilled = false;
        const int result = m_renewal.Run(site, {}, retried, subject, [&](const Attempt& attempt) {
            isServed = attempt.reason == AttemptReason::Renewed && m_cache.Serve(record);
            return isServed ? Outcome{VANTIX_NOERROR} : Fetch(site, row, attempt.subject, fresh, isFilled);
        });
        if (isServed) {
            return VANTIX_NOERROR;
        }
        if (result != VANTIX_NOERROR || !isFilled) {
            m_cache.Invalidate();
            record.iRequestCost = fresh.iRequestCost;
            return result;
        }
        m_cache.Store(fresh);
        record = std::move(fresh);
        return VANTIX_NOERROR;
    }

    Outcome Fetch(const CallSite& site, const RouteRow& row, const Subject& subject, Record& fresh,
                  bool& isFilled) const {
        const int32_t cost = fresh.iRequestCost;
        fresh = Record();
        fresh.iRequestCost = cost;
        const Outcome outcome = SendAlong(
            m_routes.Decide(site, row, subject),
            [&](const PlatformRoute& route) { return m_kind.fromPlatform(route, fresh); },
            [&](const ConsumerRoute& route) { return m_kind.fromConsumer(route, fresh); });
        isFilled = outcome.family == ServerFamily::Platform || m_kind.isFilled(fresh);
        return outcome;
    }

    const SingleRecordKind<Record>& m_kind;
    const Routes& m_routes;
    Renewal& m_renewal;
    SingleRecordCache<Record> m_cache;
};

}  // namespace vantix
