import { playScenarios } from "./scenarios.mjs";

playScenarios("webkit");
