#pragma once

#include "records/DepthExport.h"

#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/shared_ptr.hpp>

#include <string>

namespace net {

/// Named serial executors on one small pool of threads.
///
/// What is posted on one strand runs one job at a time, in the order of posting; different strands run side
/// by side. The pool starts with the first strand. A job that throws ends alone, with an error line in the
/// log. Any thread may call anything.
class DEPTH_EXPORT RPCEngine
{
public:
    using Strand = boost::asio::io_service::strand;

    /// Threads of the pool.
    static constexpr int kThreads = 2;

    /// The strand of this name: the same one for the whole life of the process. Starts the pool if it does
    /// not run.
    static boost::shared_ptr<Strand> getStrand(const std::string& name);

    /// Waits until everything posted on the strand before has run, jobs that wait in it included. Called from
    /// a job of the same strand it returns at once. Returns at once as well while the process is ending.
    static void drain(const std::string& name);

    /// Runs what was posted, and what those jobs post in turn, then ends the threads. Strands stay valid:
    /// what is posted on them later waits for the next `getStrand`, which starts the pool again. From a job
    /// of the pool it does nothing. Happens by itself at the end of the process, after which nothing posted
    /// runs any more.
    static void shutdown();
};

} // namespace net
