#include "platform/audio/ChannelStage.h"

#include "platform/audio/DenormalGuard.h"
#include "platform/audio/FadeShape.h"

namespace lyrabox {

ChannelStage::Matrix ChannelStage::matrixOf(const ChannelTools &tools) noexcept
{
    Matrix matrix;
    switch (tools.mode) {
    case ChannelMode::Both:
        break;
    case ChannelMode::Mono:
        matrix = {0.5F, 0.5F, 0.5F, 0.5F};
        break;
    case ChannelMode::Left:
        matrix = {1.0F, 0.0F, 1.0F, 0.0F};
        break;
    case ChannelMode::Right:
        matrix = {0.0F, 1.0F, 0.0F, 1.0F};
        break;
    case ChannelMode::Swapped:
        matrix = {0.0F, 1.0F, 1.0F, 0.0F};
        break;
    }
    const float left = tools.balance > 0 ? 1.0F - static_cast<float>(tools.balance) / 100.0F : 1.0F;
    const float right =
        tools.balance < 0 ? 1.0F + static_cast<float>(tools.balance) / 100.0F : 1.0F;
    return {left * matrix.leftOfLeft, left * matrix.leftOfRight, right * matrix.rightOfLeft,
            right * matrix.rightOfRight};
}

ChannelStage::Matrix ChannelStage::between(const Matrix &from, const Matrix &to,
                                           float share) noexcept
{
    const auto mixed = [share](float a, float b) { return a + share * (b - a); };
    return {mixed(from.leftOfLeft, to.leftOfLeft), mixed(from.leftOfRight, to.leftOfRight),
            mixed(from.rightOfLeft, to.rightOfLeft), mixed(from.rightOfRight, to.rightOfRight)};
}

void ChannelStage::apply(const Matrix &matrix, float &left, float &right) noexcept
{
    const float l = left;
    const float r = right;
    left = matrix.leftOfLeft * l + matrix.leftOfRight * r;
    right = matrix.rightOfLeft * l + matrix.rightOfRight * r;
}

void ChannelStage::set(const ChannelTools &tools)
{
    const ChannelTools clean = cleanChannelTools(tools);
    if (clean.centre != 0 && !m_ownCentre) {
        m_ownCentre = std::make_unique<CentreStream>();
        m_centre.store(m_ownCentre.get(), std::memory_order_release);
    }
    m_set = clean;
    m_published.publish(clean);
}

bool ChannelStage::isOn() noexcept
{
    if (const ChannelTools *newest = m_published.takeNewest()) {
        m_tools = *newest;
        m_from = m_now;
        m_to = matrixOf(m_tools);
        m_glided = m_from == m_to ? glide : 0;
    }
    CentreStream *const centre = m_centre.load(std::memory_order_acquire);
    if (m_hasSeeked) {
        m_now = m_to;
        m_glided = glide;
        if (centre != nullptr)
            centre->seek();
    }
    m_hasSeeked = false;
    return !m_tools.isNeutral() || m_glided < glide || (centre != nullptr && centre->isRunning());
}

void ChannelStage::process(float *left, float *right, std::uint32_t frames,
                           StreamAround &stream) noexcept
{
    const DenormalGuard guard;
    CentreStream *const centre = m_centre.load(std::memory_order_acquire);
    if (centre != nullptr && (m_tools.centre != 0 || centre->isRunning()))
        centre->process(m_tools, left, right, frames, stream);

    std::uint32_t i = 0;
    for (; i < frames && m_glided < glide; ++i) {
        ++m_glided;
        const double way = static_cast<double>(m_glided) / glide;
        m_now =
            m_glided == glide ? m_to : between(m_from, m_to, static_cast<float>(fadeShape(way)));
        apply(m_now, left[i], right[i]);
    }
    if (m_now == Matrix{})
        return;
    for (; i < frames; ++i)
        apply(m_now, left[i], right[i]);
}

} // namespace lyrabox
