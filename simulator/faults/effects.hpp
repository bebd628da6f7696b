#pragma once

#include "faults/actions.hpp"

namespace impresora {

// What the actions do. Each returns whether there was anything to do.

bool SetControlValue(const Action& action, Scene& scene);
bool LightBits(const Action& action, Scene& scene);
bool DarkenBits(const Action& action, Scene& scene);
bool FreeBits(const Action& action, Scene& scene);

bool RemoveField(const Action& action, Scene& scene);
bool EmptyField(const Action& action, Scene& scene);
bool AddField(const Action& action, Scene& scene);
bool ReplaceField(const Action& action, Scene& scene);
bool LowerWords(const Action& action, Scene& scene);
bool ChangeSequence(const Action& action, Scene& scene);
bool ChangeCommand(const Action& action, Scene& scene);

bool AnswerAsBefore(const Action& action, Scene& scene);
bool AnswerNak(const Action& action, Scene& scene);
bool KeepSilent(const Action& action, Scene& scene);
bool LoseCommand(const Action& action, Scene& scene);

bool SpoilChecksum(const Action& action, Scene& scene);
bool DropByte(const Action& action, Scene& scene);
bool FlipByte(const Action& action, Scene& scene);
bool DoubleByte(const Action& action, Scene& scene);
bool ReplaceByte(const Action& action, Scene& scene);
bool InsertBytes(const Action& action, Scene& scene);
bool Truncate(const Action& action, Scene& scene);
bool ChangeSpeed(const Action& action, Scene& scene);

bool AddNoise(const Action& action, Scene& scene);
bool Delay(const Action& action, Scene& scene);
bool StayBusy(const Action& action, Scene& scene);
bool Split(const Action& action, Scene& scene);
bool HangUp(const Action& action, Scene& scene);
bool PowerOff(const Action& action, Scene& scene);

}  // namespace impresora
