/// \file
/// Sinks of the log.

#pragma once

#include "platform/kfr/kfrkernelaccess.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <cstdio>
#include <memory>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// Takes finished lines.
class MODELING_API LogImpl {
public:
    virtual ~LogImpl();
    /// \param line   without a line end
    /// \param level  0 debug, 1 information, 2 warning, 3 error
    virtual void write(std::string const& line, int level) = 0;
};

/// A log file of its own in the plug-in's folder, named after the second in which it was made.
///
/// Failure    Silent: without a folder, or when the file cannot be made, lines go nowhere.
/// Threads    One thread at a time.
class MODELING_API LogFileImpl : public LogImpl {
public:
    LogFileImpl();
    ~LogFileImpl() override;

    /// Writes the line's bytes and "\r\n", and flushes. The level is not used.
    void write(std::string const& line, int level) override;

private:
    struct Close {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> m_file;
};

/// The framework's log.
///
/// Failure    Silent: without a logger, lines go nowhere.
class MODELING_API KFRLogImpl : public LogImpl {
public:
    KFRLogImpl();

    void write(std::string const& line, int level) override;

private:
    KFRSmartPointer<KFR::Framework::KFRILoggerInterface> m_logger;
};

/// The framework's logger, fetched once per process; null while there is no kernel.
///
/// Threads    Any.
KFRSmartPointer<KFR::Framework::KFRILoggerInterface> frameworkLogger();

}  // namespace vrn::orlo::plugin::modeling
