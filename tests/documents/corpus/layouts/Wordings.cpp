#include "tests/documents/corpus/layouts/Script.h"

#include <stdexcept>

// What the same thing is called by different issuers.

namespace corpus {
namespace {

struct Wording {
    const char* key;
    const char* german;
    const char* french;
    const char* italian;
};

const Wording wordings[] = {
    {"payto", "Zahlbar innert 30 Tagen auf|Bitte überweisen Sie auf|Zahlungsverbindung:",
     "Payable à 30 jours sur|Versement sur", "Pagabile entro 30 giorni su|Versamento su"},
    {"total", "Total|Gesamttotal|Summe|Zusammen|Insgesamt", "Total|Total général|Ensemble",
     "Totale|Totale generale|Insieme"},
    {"note",
     "Duplikate dieser Bescheinigung kosten {something}.|Zum Vergleich, Vorjahr {prev}: "
     "{something}.|Ab 1. Januar {next} gilt ein Mindestbetrag von {something}.|Auskunft 0848 {#3} "
     "{#3}, Montag bis Freitag 08.00–17.30 Uhr.|Guthaben unter {something} werden nicht "
     "ausbezahlt. Einwände innert 30 Tagen.|Dokument-ID {#8}-{#4}, erstellt {early}",
     "Duplicata de cette attestation: {something}.|Année précédente {prev}: {something}.|Dès le "
     "1er janvier {next}: minimum {something}.|Renseignements 0848 {#3} {#3}|Document {#8}, "
     "{early}",
     "Duplicato di questo certificato: {something}.|Anno precedente {prev}: {something}.|Dal 1o "
     "gennaio {next}: minimo {something}.|Informazioni 0848 {#3} {#3}|Documento {#8}, {early}"},
    {"date", "Datum|Valuta|Buchungsdatum|Gutschrift am", "Date|Date valeur|Crédité le",
     "Data|Data valuta|Accreditato il"},
    {"amount", "Betrag|Betrag in CHF|CHF|Franken", "Montant|Montant en CHF|CHF",
     "Importo|Importo in CHF|CHF"},
    {"contract", "Vertrag Nr.|Vertragsnummer|Vorsorgevertrag|Police|Referenz",
     "Contrat no|Numéro de contrat|Police|Référence",
     "Contratto n.|Numero di contratto|Polizza|Riferimento"},
    {"born", "Geburtsdatum|geboren am|geb.|Geb.-Datum", "Date de naissance|né(e) le",
     "Data di nascita|nato/a il"},
    {"ahvno", "AHV-Nummer|AHV-Nr.|Sozialversicherungsnummer|Vers.-Nr.", "No AVS|Numéro AVS",
     "N. AVS|Numero AVS"},
    {"person", "Name, Vorname|Versicherte Person|Vorsorgenehmer/in|Person",
     "Nom, prénom|Personne assurée|Preneur de prévoyance",
     "Cognome, nome|Persona assicurata|Titolare"},
    // Pillar 3a
    {"title3a",
     "Steuerbescheinigung Säule 3a|Bescheinigung gebundene Vorsorge|Bestätigung Ihrer "
     "3a-Beiträge|Beitragsausweis Säule 3a|Vorsorge 3a – Bescheinigung für das Steueramt|"
     "Bestätigung über Beiträge an die gebundene Selbstvorsorge",
     "Attestation fiscale pilier 3a|Attestation de prévoyance liée|Attestation des versements "
     "3a|Prévoyance individuelle liée (pilier 3a)",
     "Attestazione fiscale pilastro 3a|Conferma dei versamenti 3a|Certificato di previdenza "
     "vincolata (pilastro 3a)"},
    {"paid3a",
     "Beiträge im Kalenderjahr|Steuerlich abziehbare Beiträge|Geleistete Einzahlungen|Total "
     "Einzahlungen|Eingegangene Beiträge|Gutgeschriebene Jahresbeiträge|Vorsorgebeiträge "
     "gebundene Selbstvorsorge|Einlagen 3a",
     "Versements de l'année|Cotisations déductibles|Total des versements|Primes et cotisations "
     "versées|Apports 3a",
     "Versamenti dell'anno|Contributi deducibili|Totale dei versamenti|Contributi pagati|Apporti "
     "3a"},
    {"opening", "Anfangssaldo|Vortrag|Guthaben am 1. Januar|Saldovortrag|Stand Jahresbeginn",
     "Solde initial|Report de solde|Avoir au 1er janvier",
     "Saldo iniziale|Riporto|Avere al 1o gennaio"},
    {"closing",
     "Endsaldo|Vorsorgeguthaben am 31. Dezember|Schlusssaldo|Neuer Saldo|Stand Jahresschluss",
     "Solde final|Avoir de prévoyance au 31 décembre|Nouveau solde",
     "Saldo finale|Avere di previdenza al 31 dicembre|Nuovo saldo"},
    {"interest3a", "Zinsgutschrift|Zins|Zinsen netto|Verzinsung",
     "Intérêts|Bonification d'intérêts", "Interessi|Accredito interessi"},
    {"fees", "Gebühren|Kontoführung|Spesen|Verwaltungskosten", "Frais|Frais de gestion",
     "Spese|Tasse di gestione"},
    {"limit",
     "Gesetzlicher Höchstbetrag|Maximalbetrag mit Pensionskasse|Maximal abziehbar|Höchstabzug",
     "Montant maximal légal|Déduction maximale", "Importo massimo legale|Deduzione massima"},
    // Banks
    {"titlebank",
     "Steuerauszug|Jahresendauszug für Steuerzwecke|Bescheinigung über Guthaben und "
     "Zinsen|Steuerbescheinigung|Kapital- und Zinsbescheinigung|Vermögens- und Ertragsausweis",
     "Attestation pour les impôts|Relevé fiscal|Certificat de capital et d'intérêts|Attestation "
     "de fin d'année",
     "Attestazione per le imposte|Estratto fiscale|Certificato di capitale e interessi|Conferma "
     "di fine anno"},
    {"balance",
     "Schlusssaldo|Saldo|Guthaben|Kapital|Steuerwert|Kontoguthaben|Vermögenswert|Bestand",
     "Solde|Avoir|Capital|Valeur fiscale|Solde de clôture",
     "Saldo|Avere|Capitale|Valore fiscale|Saldo di chiusura"},
    {"interest",
     "Bruttozinsen|Zinsertrag|Habenzinsen|Aktivzins brutto|Zinsgutschriften|Kapitalertrag brutto|"
     "Steuerbarer Zins|Ertrag brutto",
     "Intérêts bruts|Rendement brut|Intérêts créditeurs|Revenu brut",
     "Interessi lordi|Reddito lordo|Interessi creditori|Ricavo lordo"},
    {"vst", "Verrechnungssteuer|VSt. 35%|./. Verrechnungssteuer 35 %|Eidg. Verrechnungssteuer",
     "Impôt anticipé|IA 35%|./. impôt anticipé",
     "Imposta preventiva|IP 35%|./. imposta preventiva"},
    {"netinterest", "Zins netto|Nettoertrag|Netto gutgeschrieben", "Intérêt net|Rendement net",
     "Interesse netto|Ricavo netto"},
    {"account", "Konto|Kontoart|Produkt|Bezeichnung|Kontonummer",
     "Compte|Type de compte|Désignation", "Conto|Tipo di conto|Designazione"},
    {"debt",
     "Hypothekarschuld|Restkapital|Offene Schuld|Saldo zu unseren Gunsten|Darlehensstand|"
     "Ausstehendes Kapital|Schuldsaldo|Kreditsaldo",
     "Dette hypothécaire|Capital restant dû|Solde du prêt|Dette en capital",
     "Debito ipotecario|Capitale residuo|Saldo del prestito|Debito in capitale"},
    {"debtinterest",
     "Schuldzinsen|Hypothekarzinsen|Bezahlte Zinsen|Zinsaufwand|Belastete Zinsen|Passivzinsen|"
     "Sollzinsen|Im Jahr angefallene Zinsen",
     "Intérêts passifs|Intérêts hypothécaires payés|Intérêts débités|Intérêts de la dette",
     "Interessi passivi|Interessi ipotecari pagati|Interessi addebitati|Interessi debitori"},
    // Bills
    {"titlebill",
     "Rechnung|Rechnung für Behandlung|Honorarnote|Patientenrechnung|Leistungsabrechnung|"
     "Liquidation",
     "Facture|Facture patient|Décompte de prestations|Facture d'honoraires",
     "Fattura|Fattura paziente|Conteggio prestazioni|Parcella"},
    {"billtotal",
     "Rechnungssumme|Total inkl. MWST|Total zu Ihren Lasten|Endbetrag|Fakturatotal|Betrag in "
     "Rechnung gestellt|Total CHF|Zu bezahlender Betrag",
     "Total de la facture|Montant total|À payer|Total CHF|Total à votre charge",
     "Totale fattura|Importo totale|Da pagare|Totale CHF|Totale a suo carico"},
    {"treatment",
     "Konsultation|Kontrolle|Röntgenbild|Verband|Labor|Medikament|Beratung|Dentalhygiene",
     "Consultation|Contrôle|Radiographie|Pansement|Laboratoire|Médicament",
     "Consulto|Controllo|Radiografia|Medicazione|Laboratorio|Medicamento"},
    {"patient", "Patient|Patientin/Patient|Behandelte Person|Für", "Patient|Patient(e)|Pour",
     "Paziente|Persona curata|Per"},
    // Premiums
    {"titlepremium",
     "Prämienausweis|Steuerbescheinigung Krankenversicherung|Bescheinigung für die Steuern|"
     "Ihre Versicherungsprämien|Jahresabrechnung Prämien und Leistungen|Prämienbestätigung",
     "Attestation de primes|Décompte annuel des primes|Confirmation des primes|Attestation pour "
     "les impôts",
     "Attestato dei premi|Conteggio annuale dei premi|Conferma dei premi|Attestazione per le "
     "imposte"},
    {"basic",
     "Obligatorische Grundversicherung|Krankenpflegeversicherung KVG|Grundversicherung (KVG)|OKP|"
     "Prämien KVG|Obligatorische Krankenpflege",
     "Assurance de base (LAMal)|Assurance obligatoire des soins|Primes LAMal|AOS",
     "Assicurazione di base (LAMal)|Assicurazione obbligatoria delle cure|Premi LAMal|AOMS"},
    {"extra",
     "Zusatzversicherung|Zusatzversicherungen (VVG)|Prämien VVG|Spitalzusatz halbprivat|"
     "Freiwillige Zusätze|Komplementärzusatz VVG",
     "Assurance complémentaire|Complémentaires (LCA)|Primes LCA|Complément hôpital",
     "Assicurazione complementare|Complementari (LCA)|Premi LCA|Complemento ospedale"},
    {"premiums",
     "Bezahlte Prämien|Total Prämien|Prämien total|Jahresprämien|Prämienaufwand|Gesamtprämie|"
     "Versicherungsprämien insgesamt",
     "Primes payées|Total primes|Primes annuelles|Prime totale",
     "Premi pagati|Totale premi|Premi annuali|Premio totale"},
    {"reduction",
     "Prämienverbilligung|Individuelle Prämienverbilligung|IPV|Kantonsbeitrag "
     "(Prämienverbilligung)|Verbilligung durch den Kanton",
     "Réduction de primes|Subside cantonal|Réduction individuelle (RIP)",
     "Riduzione dei premi|Sussidio cantonale|Riduzione individuale (RIPAM)"},
    {"netpremium", "Prämien netto|Nach Verbilligung|Von Ihnen getragen",
     "Primes nettes|À votre charge", "Premi netti|A suo carico"},
    {"franchise", "Franchise|Jahresfranchise|Kostenanteil Franchise",
     "Franchise|Franchise annuelle", "Franchigia|Franchigia annua"},
    {"retention", "Selbstbehalt|Selbstbehalt 10%|10 % Selbstbehalt|Spitalbeitrag und Selbstbehalt",
     "Quote-part|Quote-part 10%", "Aliquota percentuale|Aliquota 10%"},
    {"sharing",
     "Kostenbeteiligung|Kostenbeteiligung total|Ihre Kostenbeteiligung|Von Ihnen getragene "
     "Krankheitskosten",
     "Participation aux coûts|Votre participation|Frais de maladie à votre charge",
     "Partecipazione ai costi|La sua partecipazione|Spese di malattia a suo carico"},
    // Salary
    {"titlesalary",
     "Lohnausweis|Lohnbescheinigung für die Steuererklärung|Jahreslohnausweis|Lohnausweis für "
     "Steuerzwecke|Lohnbestätigung",
     "Certificat de salaire|Attestation de salaire|Certificat de salaire annuel",
     "Certificato di salario|Attestato di salario|Certificato di salario annuo"},
    {"base", "Lohn|Grundgehalt|Salär|Monatslöhne inkl. 13.|Gehalt",
     "Salaire|Salaire de base|Traitement", "Salario|Salario di base|Stipendio"},
    {"bonus", "Erfolgsprämie|Gratifikation|Bonus|Treueprämie|Sonderzulagen",
     "Gratification|Prime|Bonus", "Gratifica|Premio|Bonus"},
    {"gross", "Bruttolohn|Bruttolohn total|Total brutto|Bruttosalär|Brutto|Lohn brutto insgesamt",
     "Salaire brut|Total brut|Salaire brut total",
     "Salario lordo|Totale lordo|Salario lordo totale"},
    {"social",
     "AHV/IV/EO/ALV/NBUV|Beiträge AHV/IV/EO/ALV/NBUV|Sozialversicherungsbeiträge AHV, ALV, NBU|"
     "AHV-, IV-, EO-, ALV- und NBU-Beiträge|Sozialabzüge (AHV/IV/EO/ALV/NBUV)",
     "AVS/AI/APG/AC/AANP|Cotisations AVS/AI/APG/AC/AANP|Assurances sociales AVS, AC, AANP",
     "AVS/AI/IPG/AD/AINP|Contributi AVS/AI/IPG/AD/AINP|Oneri sociali AVS, AD, AINP"},
    {"bvg",
     "Pensionskasse|BVG-Beiträge|Berufliche Vorsorge ordentliche Beiträge|Beitrag Pensionskasse|"
     "2. Säule, ordentliche Beiträge|Vorsorge BVG",
     "Caisse de pension|Cotisations LPP|Prévoyance professionnelle ordinaire|2e pilier ordinaire",
     "Cassa pensione|Contributi LPP|Previdenza professionale ordinaria|2o pilastro ordinario"},
    {"bvgbuy", "Einkauf Pensionskasse|BVG-Einkauf|Beiträge für den Einkauf",
     "Rachat LPP|Rachat 2e pilier", "Riscatto LPP|Riscatto 2o pilastro"},
    {"net", "Nettolohn|Lohn netto|Nettolohn für die Steuererklärung|Nettosalär|Netto",
     "Salaire net|Salaire net à déclarer|Net", "Salario netto|Salario netto da dichiarare|Netto"},
    {"expenses", "Spesen|Effektive Spesen|Repräsentationsspesen pauschal|Reisespesen",
     "Frais|Frais effectifs|Frais de représentation",
     "Spese|Spese effettive|Spese di rappresentanza"},
};

const Wording* wordingOf(const QString& key) {
    for (const Wording& one : wordings) {
        if (key == QString::fromUtf8(one.key)) {
            return &one;
        }
    }
    throw std::runtime_error("no wording " + key.toStdString());
}

} // namespace

QString wording(Draft& draft, const QString& key, const QString& language) {
    const Wording* found = wordingOf(key);
    return draft.one(language == "fr"   ? found->french
                     : language == "it" ? found->italian
                                        : found->german);
}

} // namespace corpus
