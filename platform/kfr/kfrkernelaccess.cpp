#include "platform/kfr/kfrkernelaccess.h"

#include "platform/kfr/kfrserviceobject.h"

#include <atomic>
#include <map>

namespace KFR::Framework {

namespace {

class ServiceManager final : public KFRServiceObjectImpl<KFRIServiceManagerInterface> {
public:
    long long allocInstanceId() override { return m_next.fetch_add(1, std::memory_order_relaxed); }

    void freeInstanceId(long long id) override
    {
        if (m_hasTracked.load(std::memory_order_acquire)) {
            std::lock_guard const guard(m_mutex);
            m_tracked.erase(id);
        }
    }

    void trackInstance(long long id, std::string const& objectName) override
    {
        std::lock_guard const guard(m_mutex);
        m_tracked[id] = objectName;
        m_hasTracked.store(true, std::memory_order_release);
    }

    KFRSequence<std::string> getTrackedInstances() override
    {
        std::lock_guard const guard(m_mutex);
        KFRSequence<std::string> names;
        for (auto const& [id, name] : m_tracked) {
            names.append(name);
        }
        return names;
    }

private:
    std::atomic<long long> m_next{1};
    std::atomic<bool> m_hasTracked{false};
    std::mutex m_mutex;
    std::map<long long, std::string> m_tracked;
};

struct KernelSlot {
    std::mutex m_mutex;
    KFRSmartPointer<KFRIKernelAccessInterface> m_kernel;
};

KernelSlot& kernelSlot()
{
    static KernelSlot slot;
    return slot;
}

}  // namespace

KFRSmartPointer<KFRIKernelAccessInterface> getKernelAccessInterface()
{
    KernelSlot& slot = kernelSlot();
    std::lock_guard const guard(slot.m_mutex);
    return slot.m_kernel;
}

void setKernelAccessInterface(KFRSmartPointer<KFRIKernelAccessInterface> kernel)
{
    KernelSlot& slot = kernelSlot();
    std::lock_guard const guard(slot.m_mutex);
    slot.m_kernel.swap(kernel);
}

KFRIServiceManagerInterface* getServiceManagerInterface() noexcept
{
    // Never destroyed: objects that outlive main give their numbers back to it.
    static auto* const manager = new ServiceManager;
    return manager;
}

}  // namespace KFR::Framework
