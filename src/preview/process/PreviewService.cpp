#include "preview/process/PreviewService.h"

#include "platform/FileQuestions.h"
#include "preview/PreviewFile.h"
#include "preview/process/PreviewChannel.h"

#include <ctime>

#include <unistd.h>

namespace {

/// Of the processor, after which a fresh process goes on; below what the sandbox allows.
constexpr time_t kWorkedEnough = 30;

bool hasWorkedEnough()
{
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return time.tv_sec >= kWorkedEnough;
}

} // namespace

void PreviewService::run(int socket, const Decode &decode)
{
    PreviewChannel channel(socket);
    const std::stop_source nobodyStops;
    const auto now = [&channel] {
        // While an order is worked on, the application sends nothing but that it is not wanted.
        constexpr std::chrono::hours kRoom{1};
        return channel.isTouched() ? Patience::TimePoint::max() - kRoom
                                   : std::chrono::steady_clock::now();
    };
    while (channel.state() == PreviewChannel::State::Open) {
        const auto message = channel.receive(PreviewMessages::kMaxOrderBytes, -1,
                                             PreviewChannel::Descriptors::Taken);
        if (!message || message->descriptor < 0)
            continue; // That an order is not wanted which was done already.
        const std::optional<PreviewOrder> order = PreviewMessages::decodedOrder(message->bytes);
        if (!order) {
            ::close(message->descriptor);
            return;
        }
        const Patience patience(nobodyStops.get_token(), now,
                                std::chrono::steady_clock::now() + order->time);
        PreviewAnswer answer;
        {
            PreviewFile file(message->descriptor, order->size, patience);
            answer = decode(*order, file, patience);
        }
        answer.isLast = hasWorkedEnough();
        if (!channel.send(message->number, PreviewMessages::encoded(answer)) || answer.isLast)
            return;
    }
}
