#pragma once

#include <QString>
#include <QUrl>

#include <functional>

class QWidget;

// Opens a document with whatever the platform associates with it. The result
// is ignored: a missing file or no application for it is silence.
void ApriDocumento(QWidget *form, const QString &percorso);

// The platform's side of ApriDocumento; tests put their own in place to see
// which documents were asked for. An empty function goes back to the platform.
void ImpostaAperturaDocumenti(std::function<void(const QUrl &)> apri);
