// The patient's group: the register's data as the TAJ is typed, the town that follows the postal code, and
// the two eligibility captions. The register itself is written at the store.
#pragma once

#include "sheet/forms/visit_frames.h"

#include <functional>

namespace vandrel {

class PatientFrame : public FormGroup {
    Q_OBJECT

  public:
    PatientFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent);

    // The eligibility question and check; empty where there is no such service: then nothing is asked.
    std::function<void()> eligibilityCheck;

    void clearEligibility();
    // The picked country's name becomes the field's tool tip.
    void takeCountry(const QString& code, const QString& name);
    void forgetCountryName();

  private:
    void layOut();
    void tajChanged();
    bool tajLeft();
    bool shortenTaj();
    void clearPatient();

    SheetDesk& m_desk;
    QLabel* m_eligibility;
    QLabel* m_feeDuty;
    bool m_filling = false; // the TAJ is being completed
};

} // namespace vandrel
