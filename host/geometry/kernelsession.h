/// \file
/// What every call into the kernel's readers needs: silence, errors as exceptions, and progress.

#pragma once

#include "host/geometry/filechecks.h"
#include "host/geometry/geometryimport.h"

#include <exception>
#include <new>
#include <string>

#include <Message_ProgressIndicator.hxx>
#include <Standard_ErrorHandler.hxx>
#include <Standard_Failure.hxx>

namespace vrn::orlo::host::geometry {

/// Takes the kernel's printers away, for the life of the process: its messages would mix with what
/// the application writes.
void silenceKernel();

/// Passes the kernel's progress on, as a share of the whole import.
class KernelProgress : public Message_ProgressIndicator {
public:
    KernelProgress(ImportProgress const& report, std::string step, double from, double to)
        : m_report(report), m_step(std::move(step)), m_from(from), m_to(to)
    {
    }

protected:
    void Show(Message_ProgressScope const& scope, Standard_Boolean isForced) override;

private:
    ImportProgress const& m_report;
    std::string m_step;
    double m_from;
    double m_to;
    double m_last = -1.0;
};

/// Runs calls into the kernel; whatever it throws becomes an ImportError on one line.
template <typename Run>
auto guarded(std::filesystem::path const& file, Run const& run)
{
    try {
        return run();
    } catch (Standard_Failure const& failure) {
        std::string const text = failure.GetMessageString();
        refuse(file, "the geometry kernel failed on it" +
                         (text.empty() ? std::string() : " (" + text + ")") +
                         "; the file may be damaged");
    } catch (std::bad_alloc const&) {
        refuse(file, "there is not enough memory to read it");
    }
}

}  // namespace vrn::orlo::host::geometry
