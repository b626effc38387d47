// What the model reads of the main window.
//
// The model classes hold no references to each other: every operation fetches the current
// control polygon, knot vector, weights, settings and drawing surfaces through this interface at
// each use, so no change notification exists anywhere. The editor's window implements it; the
// tests drive the real model through a headless implementation.
#pragma once

#include <cstdint>

#include "platform/colour.h"

namespace zw {

class coordinaten;
class KnoopVector;
class BlossomFunctie;
class GewichtenForm;
class Surface;

class MainWindow {
  public:
    virtual ~MainWindow() = default;

    // --- The model objects, created once and kept for the whole run ----------------------------
    virtual coordinaten& polygoon() = 0;
    virtual KnoopVector& vec() = 0;
    virtual BlossomFunctie& evaluator() = 0;
    // The weights window: it owns one rational weight per control point.
    virtual GewichtenForm& gewichten() = 0;
    // Records the whole state as the next undo version.
    virtual void save() = 0;

    // --- Drawing --------------------------------------------------------------------------------
    virtual Surface& Doek() = 0;
    virtual Surface& Knopen() = 0;
    virtual Surface& meng() = 0;
    // The colour of control point (or segment) i: colour table entry i mod 8.
    virtual Colour kleur(double i) = 0;

    // --- Public variables of the window ---------------------------------------------------------
    std::int32_t ControleStraal = 0;
    std::int32_t BollenStraal = 60;
    std::int32_t berngrootte = 0;
    std::int32_t Schaal = 2;
    Colour Datakleur = 0;
    Colour krommekleur = 0;
    Colour controlkleur = 0;
    Colour doekkleur = 0;
    Colour lijnkleur = 0;
    Colour splinekleur = 0;
    Colour Bezierkleur = 0;
    Colour segmentkleur = 0;
    Colour Reeel = 0;
    Colour virtueel = 0;
    float breedtestap = 2000.0f;
    float vectorlengte = 0.0f;
    float hoogte = 500.0f;
    float verticale_positie = 0.0f;
    // Spline Punt mode: a left click inserts a knot where it hits the curve.
    bool segment = false;
    bool mengstat = false;
    bool gewichtstat = false;
    bool knooppunten = true;
};

}  // namespace zw
