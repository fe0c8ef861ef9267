#include "platform/kfr/kfrserviceobject.h"

#include "platform/kfr/kfrkernelaccess.h"

#include <mutex>

namespace KFR::Framework {

/// One per object that was ever asked for a weak reference. The object's core holds one reference
/// on it, so that both sides may go first.
class KFRObjectCore::WeakReference final : public KFRServiceObjectImpl<KFRIWeakReferenceInterface> {
public:
    WeakReference(KFRObjectCore& core, KFRIServiceInterface* object)
        : m_core(&core), m_object(object)
    {
    }

    KFRIService lock() override
    {
        // The object cannot be deleted while this lock is held: expire() waits for it.
        std::lock_guard const guard(m_mutex);
        if (m_core == nullptr || !m_core->m_count.tryAdd()) {
            return {};
        }
        return KFRIService(m_object, KFRIServiceInterface::kfrTypeCode(), kAdopt);
    }

    void expire() noexcept
    {
        std::lock_guard const guard(m_mutex);
        m_core = nullptr;
        m_object = nullptr;
    }

private:
    std::mutex m_mutex;
    KFRObjectCore* m_core;
    KFRIServiceInterface* m_object;
};

KFRObjectCore::~KFRObjectCore()
{
    if (WeakReference* const weak = m_weak.load(std::memory_order_acquire)) {
        weak->expire();  // an object that was never released, because its constructor threw
        weak->releaseReference(nullptr);
    }
    if (long long const id = m_instanceID.load(std::memory_order_relaxed); id != 0) {
        getServiceManagerInterface()->freeInstanceId(id);
    }
}

void KFRObjectCore::expireWeak() noexcept
{
    m_weak.load(std::memory_order_acquire)->expire();
}

long long KFRObjectCore::instanceID() noexcept
{
    long long seen = m_instanceID.load(std::memory_order_acquire);
    if (seen == 0) {
        long long const fresh = getServiceManagerInterface()->allocInstanceId();
        if (m_instanceID.compare_exchange_strong(seen, fresh, std::memory_order_acq_rel)) {
            return fresh;
        }
        getServiceManagerInterface()->freeInstanceId(fresh);  // another thread was first
    }
    return seen;
}

KFRSmartPointer<KFRIWeakReferenceInterface> KFRObjectCore::weakReference(
    KFRIServiceInterface* object)
{
    WeakReference* seen = m_weak.load(std::memory_order_acquire);
    if (seen == nullptr) {
        auto* const fresh = new WeakReference(*this, object);
        if (m_weak.compare_exchange_strong(seen, fresh, std::memory_order_acq_rel)) {
            seen = fresh;
        } else {
            fresh->releaseReference(nullptr);
        }
    }
    return KFRSmartPointer<KFRIWeakReferenceInterface>(seen);
}

}  // namespace KFR::Framework
