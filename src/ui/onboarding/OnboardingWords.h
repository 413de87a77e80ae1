// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// What the pages of the first start say, but for its footer.
namespace zeph::ui::OnboardingWords {

/// A symbol and what it stands for.
struct Tip {
    QString symbol;
    QString text;
};

/// What a permission is asked for.
struct Permission {
    QString symbol;
    QString title;
    QString reason;
};

/// A kind of numbers, and where they come from.
struct Source {
    QString title;
    QString detail;
};

QString windowTitle();
QString back();
/// Where the user stands, for those who don't see the marks.
QString progress(int number, int count);

QString welcome();
QString promise();
QString announcement();

Permission input();
Permission location();
QString allow();
QString allowed();
QString openSettings();
QString optional();

QString integrations();
QString keys();
std::vector<Source> sources();
QString later();

QString customizing();
std::vector<Tip> choices();
/// What the three pictures are to choose of.
QString background();

QString finish();
std::vector<Tip> whereThingsAre();

} // namespace zeph::ui::OnboardingWords
