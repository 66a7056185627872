// The head of the sheet: the institution in two lines, today, the sheet's key and the mode. It only shows.
#pragma once

#include <QWidget>

class QLabel;

namespace vandrel {

class InstitutionHead : public QWidget {
    Q_OBJECT

  public:
    explicit InstitutionHead(QWidget* parent = nullptr);

    void setInstitution(const QString& name, const QString& address);
    void setToday(const QString& today);
    void setKey(const QString& key);
    void setMode(const QString& mode); // "Javítás", or empty for a new sheet
    QString key() const;

  private:
    QLabel* m_name;
    QLabel* m_address;
    QLabel* m_today;
    QLabel* m_key;
    QLabel* m_mode;
};

} // namespace vandrel
