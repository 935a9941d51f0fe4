#pragma once
#include "host/indicators/Formula.h"

namespace desk {

std::unique_ptr<Formula> makeMovingAverage();
std::unique_ptr<Formula> makeIchimoku();
std::unique_ptr<Formula> makeParabolicSar();
std::unique_ptr<Formula> makeBollinger();
std::unique_ptr<Formula> makeOstrelChannel();
std::unique_ptr<Formula> makeFractals();
std::unique_ptr<Formula> makeMacd();
std::unique_ptr<Formula> makeRsi();
std::unique_ptr<Formula> makeStochastic();
std::unique_ptr<Formula> makeAverageTrueRange();
std::unique_ptr<Formula> makeCommodityChannel();
std::unique_ptr<Formula> makeMomentum();
std::unique_ptr<Formula> makeVolume();
std::unique_ptr<Formula> makePairSum();

} // namespace desk
