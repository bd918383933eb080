// Threads that work on batches of one stream and deliver what they made in the order of the stream.
#ifndef QXPDU_WORKERS_H
#define QXPDU_WORKERS_H

#include <functional>

namespace qxpdu {

/// Hands over what was made of a batch; runs in the order in which the batches were taken. False ends the
/// work.
using Delivery = std::function<bool()>;

/// Works on a batch, beside other workers.
using BatchWork = std::function<Delivery()>;

/// Takes the next batch off the stream, one worker at a time; nothing at the end of the stream.
using BatchSource = std::function<BatchWork()>;

/// Is told how many threads there are, before any of them delivers what comes next.
using FewerThreads = std::function<void(unsigned int)>;

/// Works until the stream is at its end; each thread holds one batch at a time. What a step throws ends the
/// work and is thrown on. Where the system grants fewer threads, those do the work, and `whenFewer` is
/// called.
void WorkInOrder(const BatchSource& take, unsigned int threads, const FewerThreads& whenFewer);

} // namespace qxpdu

#endif
