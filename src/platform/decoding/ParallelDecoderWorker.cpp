#include "platform/decoding/ParallelDecoderWorker.h"

#include <new>
#include <utility>

namespace lyrabox::decoding {

ParallelDecoder::Worker::Worker(ParallelDecoder &owner, AvPointer<AVCodecContext> context)
    : m_owner(owner), m_context(std::move(context))
{
    if (m_context)
        m_owner.m_pool->serve(*m_context);
}

bool ParallelDecoder::Worker::decode(Segment &segment)
{
    try {
        if (segment.decoded == 0 && !prepare())
            return false;
        return decodePackets(segment);
    } catch (const std::bad_alloc &) {
        m_outOfMemory = true;
        return false;
    }
}

bool ParallelDecoder::Worker::prepare()
{
    if (m_context) {
        if (m_owner.m_canStartAnywhere)
            avcodec_flush_buffers(m_context.get());
        return true;
    }
    Status opened = status::noError;
    m_context = openCodec(m_owner.m_codec, *m_owner.m_parameters, m_owner.m_timeBase, opened);
    if (m_context)
        m_owner.m_pool->serve(*m_context);
    else
        countFailure(opened == status::notEnoughMemory ? AVERROR(ENOMEM) : AVERROR_INVALIDDATA);
    return m_context != nullptr;
}

bool ParallelDecoder::Worker::decodePackets(Segment &segment)
{
    while (segment.decoded < segment.packets.size()) {
        const Output output = segment.decoded >= segment.dropped ? Output::Kept : Output::Dropped;
        const AvPointer<AVPacket> packet = std::move(segment.packets[segment.decoded++]);
        const int sent = avcodec_send_packet(m_context.get(), packet.get());
        const int taken = receiveFrames(output);
        if (output == Output::Kept) {
            countFailure(sent);
            countFailure(taken);
        }
        if (m_batch.full.size() >= batchFrames)
            return true;
    }
    if (segment.last) {
        avcodec_send_packet(m_context.get(), nullptr);
        countFailure(receiveFrames(Output::Kept));
    }
    return false;
}

/// Receives all frames that the decoder has ready. Returns the code that ended the loop.
int ParallelDecoder::Worker::receiveFrames(Output output)
{
    for (;;) {
        if (!m_frame)
            m_frame = emptyFrame();
        const int error = avcodec_receive_frame(m_context.get(), m_frame.get());
        if (error < 0)
            return error;
        if (output == Output::Kept && m_frame->nb_samples > 0)
            m_batch.full.push_back(std::move(m_frame));
    }
}

AvPointer<AVFrame> ParallelDecoder::Worker::emptyFrame()
{
    if (m_batch.empty.empty()) {
        AvPointer<AVFrame> frame(av_frame_alloc());
        if (!frame)
            throw std::bad_alloc();
        return frame;
    }
    auto frame = std::move(m_batch.empty.back());
    m_batch.empty.pop_back();
    return frame;
}

void ParallelDecoder::Worker::countFailure(int error)
{
    if (error == 0 || error == AVERROR(EAGAIN) || error == AVERROR_EOF)
        return;
    ++m_failures;
    m_outOfMemory = m_outOfMemory || error == AVERROR(ENOMEM);
}

} // namespace lyrabox::decoding
