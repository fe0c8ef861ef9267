#include "host/geometry/kernelsession.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>

namespace vrn::orlo::host::geometry {

void silenceKernel()
{
    Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_Printer));
}

void KernelProgress::Show(Message_ProgressScope const&, Standard_Boolean)
{
    constexpr double kStep = 0.005;  // the kernel reports far more often than anybody looks
    double const fraction = m_from + (m_to - m_from) * GetPosition();
    if (m_report && fraction >= m_last + kStep) {
        m_last = fraction;
        m_report(fraction, m_step);
    }
}

}  // namespace vrn::orlo::host::geometry
