// SPDX-License-Identifier: MIT
#include "ui/onboarding/ProgressMarks.h"

#include "ui/controls/Look.h"
#include "ui/onboarding/OnboardingWords.h"

#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zeph::ui {

namespace {

constexpr double thickness = 6;
constexpr double longMark = 18;
constexpr double gap = 6;
constexpr double bright = 0.9;
constexpr double faint = 0.22;
constexpr double clear = 0.6; // in high contrast
constexpr std::chrono::milliseconds markMotion{250};

double partway(double from, double to, double part) {
    return from + (to - from) * part;
}

} // namespace

ProgressMarks::ProgressMarks(int count, QWidget *parent)
    : QProgressBar(parent), m_count(count), m_place(*this, markMotion) {
    setRange(1, count);
    setTextVisible(false);
    setCurrent(0);
}

void ProgressMarks::setCurrent(int mark) {
    setValue(mark + 1);
    setAccessibleName(OnboardingWords::progress(mark + 1, m_count));
    m_place.to(mark);
}

QSize ProgressMarks::sizeHint() const {
    return {scaled(longMark + (m_count - 1) * (thickness + gap)), scaled(thickness)};
}

void ProgressMarks::paintEvent(QPaintEvent *) {
    const double unit = scale();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (layoutDirection() == Qt::RightToLeft) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    const bool isHigh = Look::of(*this).appearance() == Appearance::highContrast;
    QColor color = isHigh ? Look::of(*this).tokens().ink : QColor(Qt::white);
    double left = 0;
    for (int mark = 0; mark < m_count; ++mark) {
        const double nearness = std::max(0.0, 1 - std::abs(m_place.value() - mark));
        const double length = partway(thickness, longMark, nearness) * unit;
        color.setAlphaF(static_cast<float>(partway(isHigh ? clear : faint, bright, nearness)));
        painter.setBrush(color);
        const double height = thickness * unit;
        painter.drawRoundedRect(QRectF(left, 0, length, height), height / 2, height / 2);
        left += length + gap * unit;
    }
}

} // namespace zeph::ui
