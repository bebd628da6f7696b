// Los artículos de los botones: cámbielos por los suyos. El precio es el final, con IVA.
export const ARTICULOS = [
  { descripcion: "Tostado natural", precio: "1500.00", iva: "21" },
  { descripcion: "Café molido 500 g", precio: "8900.50", iva: "21" },
  { descripcion: "Yerba mate 1 kg", precio: "4200.00", iva: "21" },
  { descripcion: "Alfajor de maicena", precio: "950.25", iva: "21" },
  { descripcion: "Agua 500 cc", precio: "800.00", iva: "21" },
  { descripcion: "Diccionario", precio: "4500.00", iva: "10.5" },
];
