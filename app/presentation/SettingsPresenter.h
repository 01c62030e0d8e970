#pragma once

#include <QtQml/qqmlregistration.h>

#include <QVariantList>

#include "app/presentation/SettingsText.h"
#include "app/presentation/StorePresenter.h"
#include "app/presentation/Variants.h"

namespace ornivo::app {

/// The rows and explanations of Settings.
class SettingsPresenter : public StorePresenter {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString modelNote READ modelNote CONSTANT)
    Q_PROPERTY(QString reviewNote READ reviewNote CONSTANT)
    Q_PROPERTY(bool hasSink READ hasSink NOTIFY changed)
    /// `Choice`s.
    Q_PROPERTY(QVariantList bursts READ bursts CONSTANT)
    /// The place of the present one in `bursts`.
    Q_PROPERTY(int burst READ burst NOTIFY changed)
    Q_PROPERTY(QString burstExplanation READ burstExplanation NOTIFY changed)
    Q_PROPERTY(bool burstIsExperimental READ burstIsExperimental NOTIFY changed)
    Q_PROPERTY(QString regionExplanation READ regionExplanation NOTIFY changed)

public:
    using StorePresenter::StorePresenter;

    QString modelNote() const;
    QString reviewNote() const { return app::reviewNote(); }
    bool hasSink() const { return hasSink_; }
    QVariantList bursts() const { return variants(burstChoices()); }
    int burst() const { return static_cast<int>(burst_); }
    QString burstExplanation() const { return app::burstExplanation(burst_); }
    bool burstIsExperimental() const { return burstInheritanceIsExperimental(burst_); }
    QString regionExplanation() const;

    /// A way of treating bursts, by its place in `bursts`.
    Q_INVOKABLE void chooseBurst(int row);

Q_SIGNALS:
    void changed();

protected:
    void follow(AppStore& store) override;

private:
    void refresh();

    bool hasSink_ = false;
    BurstInheritance burst_ = BurstInheritance::off;
    bool isRegionNamed_ = false;
};

}  // namespace ornivo::app
